#!/usr/bin/env bash
# package_test.sh BUILD_DIR CPACK VERSION
#
# 1. `cmake --install` into a scratch prefix: the programs, the sound plugin and the language
#    libraries share one folder, the desktop entry starts the window there (Path=), the icon,
#    the man page, and bin/wkestel runs.
# 2. `cpack -G DEB`: the package installs with dpkg into a scratch root, declares the Qt
#    libraries and platform plugins it needs, and the installed /usr/bin/wkestel runs.
set -u
build=$1
cpack=$2
version=$3
work=$(mktemp -d "${TMPDIR:-/tmp}/wkestel-package-XXXXXX")
trap 'rm -rf "$work"' EXIT
failures=0
fail() {
    echo "FAIL: $*"
    failures=$((failures + 1))
}

# check_tree ROOT PREFIX: the installed tree under ROOT, installed for PREFIX.
check_tree() {
    local root=$1 prefix=$2
    local programs="$root$prefix/lib/wkestel32"
    for file in WKestel32 wkestel Kes32_eng.dll Kes32_ita.dll libwkestel_sound.so; do
        [ -f "$programs/$file" ] || fail "$prefix/lib/wkestel32/$file is missing"
    done
    [ -x "$programs/WKestel32" ] || fail "WKestel32 is not executable"
    local desktop="$root$prefix/share/applications/wkestel32.desktop"
    if [ -f "$desktop" ]; then
        grep -qx "Path=$prefix/lib/wkestel32" "$desktop" ||
            fail "the desktop entry does not start the window in its folder: $(grep Path= "$desktop")"
        grep -qx "Exec=\"$prefix/lib/wkestel32/WKestel32\"" "$desktop" ||
            fail "the desktop entry runs $(grep Exec= "$desktop")"
        grep -qx "Icon=wkestel32" "$desktop" || fail "the desktop entry names no icon"
    else
        fail "no desktop entry"
    fi
    [ -f "$root$prefix/share/icons/hicolor/scalable/apps/wkestel32.svg" ] || fail "no icon"
    local man="$root$prefix/share/man/man1/wkestel.1.gz"
    if [ -f "$man" ]; then
        gzip -dc "$man" | grep -q 'wkestel profile get' ||
            fail "the man page does not describe the commands"
    else
        fail "no man page"
    fi
    [ -L "$root$prefix/bin/wkestel" ] || fail "bin/wkestel is not a link to the program"
    [ -x "$root$prefix/bin/wkestel32" ] || fail "no launcher bin/wkestel32"
    local shown
    shown=$("$root$prefix/bin/wkestel" --version 2>&1)
    [ "$shown" = "wkestel $version" ] || fail "installed wkestel --version printed: $shown"
    if command -v ldd >/dev/null; then
        local missing
        missing=$(ldd "$programs/WKestel32" 2>&1 | grep 'not found')
        [ -z "$missing" ] || fail "the installed window lacks libraries: $missing"
        # The multimedia module is the sound plugin's alone, loaded on the first sound test.
        ! ldd "$programs/WKestel32" | grep -q Multimedia ||
            fail "the window links the multimedia module"
        missing=$(ldd "$programs/libwkestel_sound.so" 2>&1 | grep 'not found')
        [ -z "$missing" ] || fail "the installed sound plugin lacks libraries: $missing"
    fi
}

echo "== cmake --install"
if cmake --install "$build" --prefix "$work/local" >"$work/install.log" 2>&1; then
    check_tree "" "$work/local"
else
    fail "cmake --install failed:"
    cat "$work/install.log"
fi

echo "== cpack -G DEB"
if ! (cd "$work" && "$cpack" -G DEB --config "$build/CPackConfig.cmake" -B "$work/package") \
    >"$work/cpack.log" 2>&1; then
    fail "cpack failed:"
    cat "$work/cpack.log"
    exit 1
fi
deb=$(ls "$work"/package/*.deb 2>/dev/null | head -1)
if [ -z "$deb" ]; then
    fail "cpack made no .deb: $(ls "$work/package")"
    exit 1
fi
echo "package: $(basename "$deb") ($(du -k "$deb" | cut -f1) KB)"
depends=$(dpkg-deb --field "$deb" Depends)
echo "Depends: $depends"
for needed in libqt6widgets6 libqt6svg6 libqt6multimedia6 qt6-qpa-plugins libstdc++6; do
    [[ "$depends" == *"$needed"* ]] || fail "the package does not depend on $needed"
done
[ "$(dpkg-deb --field "$deb" Version)" = "$version" ] ||
    fail "the package's version is $(dpkg-deb --field "$deb" Version)"

# A real dpkg install into a scratch root (dependencies are those of this machine, which has
# them installed to build; they are not installed into the scratch root).
root="$work/root"
mkdir -p "$root/var/lib/dpkg/info" "$root/var/lib/dpkg/updates"
touch "$root/var/lib/dpkg/status" "$root/var/lib/dpkg/available"
if dpkg --root="$root" --force-not-root --force-depends --force-script-chrootless \
    --log=/dev/null -i "$deb" >"$work/dpkg.log" 2>&1; then
    check_tree "$root" /usr
    grep -q '^Status: install ok installed' "$root/var/lib/dpkg/status" ||
        fail "dpkg does not list the package as installed"
else
    fail "dpkg could not install the package:"
    cat "$work/dpkg.log"
fi

if [ $failures -eq 0 ]; then
    echo "installed and packaged programs: all checks passed"
fi
[ $failures -eq 0 ]
