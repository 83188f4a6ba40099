# The two commands that do all the set-up on a fresh machine: `make demo` and `make test`.
BUILD ?= build
CMAKE_FLAGS ?=

.PHONY: all deps configure build test demo demo-reset bench clean

all: build

deps:
	scripts/install-deps

configure: deps
	cmake -S . -B $(BUILD) -G Ninja $(CMAKE_FLAGS)

build: configure
	cmake --build $(BUILD)

test: build
	cd $(BUILD) && ctest --output-on-failure --timeout 300

demo: build
	scripts/run-demo $(BUILD)

# Throws away the demo's working copy so that the next `make demo` starts from the shipped files.
demo-reset:
	rm -rf $(BUILD)/demo-prefix

bench: build
	scripts/run-benchmarks $(BUILD)

clean:
	rm -rf $(BUILD)
