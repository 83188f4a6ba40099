# The two commands that do all the set-up on a fresh machine: `make demo` and `make test`.
BUILD ?= build
WINDOWS_BUILD ?= build-windows
CMAKE_FLAGS ?=
WINDOWS_CMAKE_FLAGS ?=

.PHONY: all deps configure build programs test demo demo-reset screenshots bench windows test-windows clean

all: build

deps:
	scripts/install-deps

configure: deps
	cmake -S . -B $(BUILD) -G Ninja $(CMAKE_FLAGS)

build: configure
	cmake --build $(BUILD)

test: build
	cd $(BUILD) && ctest --output-on-failure --timeout 300

# The programs and the language libraries, without tests or benchmarks.
programs: configure
	cmake --build $(BUILD) --target programs

# Only what the demo runs: the window, wkestel, the language libraries, and the screenshot tool
# that draws the window where no display can show it.
demo: configure
	cmake --build $(BUILD) --target programs wkestel-screenshots
	scripts/run-demo $(BUILD)

# Throws away the demo's working copy so that the next `make demo` starts from the shipped files.
demo-reset:
	rm -rf $(BUILD)/demo-prefix

# The README's pictures of every page, the directory dialog and the about box, drawn anew on the
# demo prefix at the normal and at twice the scale (docs/screenshots, docs/screenshots/2x).
screenshots: configure
	cmake --build $(BUILD) --target programs wkestel-screenshots
	scripts/screenshots $(BUILD)

bench: build
	scripts/run-benchmarks $(BUILD)

# The core and wkestel.exe cross-compiled for 64-bit Windows (mingw-w64), without the window
# (Qt for Windows is not a Debian package), and their test under Wine against Windows' own
# private-profile functions.
windows:
	scripts/install-deps windows
	cmake -S . -B $(WINDOWS_BUILD) -G Ninja -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64-x86_64.cmake \
	      -DWKESTEL_BUILD_GUI=OFF -DWKESTEL_BUILD_BENCH=OFF $(WINDOWS_CMAKE_FLAGS)
	cmake --build $(WINDOWS_BUILD)

test-windows: windows
	cd $(WINDOWS_BUILD) && ctest --output-on-failure --timeout 600

clean:
	rm -rf $(BUILD) $(WINDOWS_BUILD)
