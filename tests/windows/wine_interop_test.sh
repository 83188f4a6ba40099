#!/usr/bin/env bash
# The Windows build under Wine, against Windows' own private-profile functions.
#
#   wine_interop_test.sh WKESTEL_EXE PROFILE_REFERENCE_EXE OEM_TABLE_EXE VERSION_INFO_EXE
#                        HOLD_LOCK_EXE OEM_TABLE_DIR DEMO_PREFIX VERSION
#
# profile_reference.exe calls kernel32's GetPrivateProfileStringA, GetPrivateProfileIntA and
# WritePrivateProfileStringA (Wine's) with the command line of `wkestel profile`. The same edits
# are made through both on copies of the same file, and the files must come out byte for byte
# the same; every value, listing and integer is read back through both, from the files either
# one wrote, and must read the same.
#
# Only edits on which Wine and Windows agree are compared. Where Wine differs from Windows, the
# editor follows Windows, and such cases are left out here (they are tested against Windows'
# documented behaviour by the Linux build's own tests):
#   - Wine rewrites the whole file from its parsed form on any change: blank lines vanish,
#     blanks around '=' and around lines go, text after ']' on a header is lost, LF-only and
#     CR-only files become CRLF, the header of a "[]" section is not written. Windows changes
#     only the lines it edits. So every file compared here is already in the form Wine writes.
#   - Wine puts a new key after the comments and blank lines that end its section; Windows puts
#     it after the section's last key line. (No section here ends in a comment.)
#   - Wine treats ";key=x" lines as keys; Windows never finds, replaces or deletes them.
#   - Wine strips leading blanks from a written value; Windows writes it as given.
#   - Wine ends a header at the last ']', Windows at the first; Wine reaches the lines before the
#     first header through section "", and drops "[]" from section listings.
#   - Wine trims CR, LF, FF and 0x1A as blanks; Windows only space, TAB and VT.
#   - Wine strips quotes from the default text; Windows does not.
#   - Wine honours UTF-8 and UTF-16BE byte-order marks; Windows only UTF-16LE.
#   - Wine writes one NUL after a cut listing instead of two; deleting in a missing file creates
#     no file in Wine and an empty one in Windows; the flush call (all NULL) fails in Wine.
# One of these (blank lines) is shown at the end, as a check that the reference really is
# Wine's own implementation and not the editor's.
#
# The safe save is then run on Windows' own file calls: a whole save that changes both
# settings files, refused whole when one is read-only and forced with --force, a save killed
# after its journal finished by the next command, leftover temporary files removed, devices
# and pipes in a file's place, another writer's lock (hold_lock.exe), and two writers at once.
#
# Exit 77 (skipped) only when Wine is not installed or cannot start a program at all.
set -u

if [ $# -ne 8 ]; then
    echo "usage: $0 WKESTEL_EXE PROFILE_REFERENCE_EXE OEM_TABLE_EXE VERSION_INFO_EXE" \
         "HOLD_LOCK_EXE OEM_TABLE_DIR DEMO_PREFIX VERSION" >&2
    exit 2
fi
ours_exe=$1
ref_exe=$2
oem_exe=$3
version_exe=$4
lock_exe=$5
oem_tables=$6
demo_prefix=$7
version=$8

if ! command -v wine >/dev/null 2>&1; then
    echo "SKIPPED: wine is not installed (Debian packages wine and wine64; scripts/install-deps" \
         "windows installs them)."
    exit 77
fi

work=$(mktemp -d "${TMPDIR:-/tmp}/wkestel-wine-XXXXXX")
export WINEPREFIX="$work/prefix"
export WINEDEBUG=-all
# No Mono or Gecko installer questions, no window: nothing here needs them.
export WINEDLLOVERRIDES="mscoree,mshtml="
unset DISPLAY WAYLAND_DISPLAY
# Wine takes the ANSI code page (1252) and the encoding of host file names (UTF-8) from the
# locale; both are fixed here, whatever the machine's.
export LC_ALL=C.UTF-8
export WKESTEL_OEM_CODEPAGE=

cleanup() {
    wineserver -k >/dev/null 2>&1 || true
    rm -rf "$work"
}
trap cleanup EXIT

started=$(date +%s)
if ! wineboot -i >"$work/wineboot.log" 2>&1; then
    echo "SKIPPED: wine cannot create a prefix:"
    sed 's/^/  /' "$work/wineboot.log"
    exit 77
fi
# One server for all the calls below, instead of one per call.
wineserver -p 120 >/dev/null 2>&1 || true
if ! wine "$ref_exe" sections 'C:\no-such-file.ini' >"$work/first-run.log" 2>&1; then
    echo "SKIPPED: wine cannot run a Windows program:"
    sed 's/^/  /' "$work/first-run.log"
    exit 77
fi
echo "Wine prefix ready in $(($(date +%s) - started)) s ($(wine --version 2>/dev/null))"

windows_dir="$WINEPREFIX/drive_c/windows"
mkdir -p "$WINEPREFIX/drive_c/wk/ours" "$WINEPREFIX/drive_c/wk/ref"
failures=0
checks=0

fail() {
    echo "FAIL: $*"
    failures=$((failures + 1))
}

pass() {
    checks=$((checks + 1))
}

ours() { wine "$ours_exe" "$@"; }
ref() { wine "$ref_exe" "$@"; }

# The Windows path and the host path of a case's copy for one of the two tools.
dos_file() { printf 'C:\\wk\\%s\\%s' "$1" "$2"; }
host_file() { printf '%s/drive_c/wk/%s/%s' "$WINEPREFIX" "$1" "$2"; }

# start NAME BYTES: both copies start with the same bytes (printf %b escapes); no BYTES, no file.
start() {
    rm -f "$(host_file ours "$1")" "$(host_file ref "$1")"
    if [ $# -gt 1 ]; then
        printf '%b' "$2" >"$(host_file ours "$1")"
        printf '%b' "$2" >"$(host_file ref "$1")"
    fi
}

# edit NAME set|delete SECTION [KEY [VALUE]]: the same call through both, on their own copy.
edit() {
    local name=$1 command=$2
    shift 2
    ours profile "$command" "$(dos_file ours "$name")" "$@" >"$work/out" 2>&1 ||
        fail "$name: wkestel profile $command $* failed: $(cat "$work/out")"
    ref "$command" "$(dos_file ref "$name")" "$@" >"$work/out" 2>&1 ||
        fail "$name: profile_reference $command $* failed: $(cat "$work/out")"
}

# same_bytes NAME: the two copies are byte for byte the same.
same_bytes() {
    local name=$1
    if cmp -s "$(host_file ours "$name")" "$(host_file ref "$name")"; then
        pass
    else
        fail "$name: the files differ"
        echo "  written by wkestel.exe:"
        od -c "$(host_file ours "$name")" | sed 's/^/    /'
        echo "  written by Windows' functions (Wine):"
        od -c "$(host_file ref "$name")" | sed 's/^/    /'
    fi
}

# same_read WHAT ARGS...: a read (get, int, keys, sections) of each copy through each tool
# gives the same bytes: each tool reads what the other wrote as what it wrote itself.
same_read() {
    local name=$1 command=$2
    shift 2
    local owner reader expected="" got
    for owner in ours ref; do
        for reader in ours ref; do
            if [ "$reader" = ours ]; then
                ours profile "$command" "$(dos_file "$owner" "$name")" "$@" >"$work/read" 2>&1
            else
                ref "$command" "$(dos_file "$owner" "$name")" "$@" >"$work/read" 2>&1
            fi
            got=$(od -An -c "$work/read")
            if [ -z "$expected" ]; then
                expected=$got
            elif [ "$got" != "$expected" ]; then
                fail "$name: $command $* on the copy of $owner, read by $reader: got [$got]," \
                     "expected [$expected]"
                return
            fi
        done
    done
    pass
}

# every_value NAME: every section, key and value of the copies reads the same through both.
every_value() {
    local name=$1 section key
    same_read "$name" sections
    while IFS= read -r section; do
        [ -n "$section" ] || continue
        same_read "$name" keys "$section"
        while IFS= read -r key; do
            [ -n "$key" ] || continue
            same_read "$name" get "$section" "$key"
        done < <(ref keys "$(dos_file ref "$name")" "$section")
    done < <(ref sections "$(dos_file ref "$name")")
}

echo "== Edits: the same calls give the same bytes"

start new_file
edit new_file set Machine Type RMD
edit new_file set Machine Port COM1
edit new_file set Measure Units MM
same_bytes new_file
every_value new_file

start replace_value '[Wzelko]\r\nLANGUAGE=ENG\r\nSYSTEM_DIR=C:\\WZELKO\r\n[Controller]\r\nType=RMD\r\n'
edit replace_value set wzelko language ITA
edit replace_value set CONTROLLER type KPT
edit replace_value set Wzelko SYSTEM_DIR 'D:\WZELKO\NEU'
same_bytes replace_value
every_value replace_value

start new_keys '[A]\r\nk1=1\r\nk2=2\r\n[B]\r\nk3=3\r\n'
edit new_keys set A k4 4
edit new_keys set B k5 5
edit new_keys set a K6 6
edit new_keys set C k7 7
same_bytes new_keys
every_value new_keys

start deletes '[A]\r\nk1=1\r\nk2=2\r\nk3=3\r\n[B]\r\nk4=4\r\n[C]\r\nk5=5\r\n'
edit deletes delete A k2
edit deletes delete a K3
edit deletes delete B
edit deletes delete C no-such-key
edit deletes delete no-such-section
same_bytes deletes
every_value deletes

start values '[S]\r\nk=v\r\n'
edit values set S Path 'C:\Program Files\Marvane x'
edit values set S Equals 'a=b=c'
edit values set S Quoted '"quoted value"'
edit values set S Empty ''
edit values set S Semicolon 'x ; not a comment'
# Arguments are given as the host gives them (UTF-8); Wine hands them to the programs in the
# ANSI code page, and the files hold code page 1252 bytes.
edit values set S Ansi 'Zürich été €'
edit values set S 'Schlüssel' 'äöü'
edit values set S Trailing 'blank at the end '
same_bytes values
every_value values

start no_final_line_end '[S]\r\nk=v'
edit no_final_line_end set T n 1
same_bytes no_final_line_end
start last_line_replaced '[S]\r\nk=v'
edit last_line_replaced set S k w
same_bytes last_line_replaced

start unchanged '[S]\r\nk=v\r\n'
edit unchanged set S k v
same_bytes unchanged

echo "== Reads: values, integers and listings read the same"

start reads '[S]\r\nspaced = value with blanks  \r\nquoted="in quotes"\r\nnum=42A9\r\nneg=-1\r\nnone=B12\r\nhex=0x1F\r\nbig=4294967297\r\nlong=abcdefgh\r\n[T]\r\nx=1\r\n'
every_value reads
same_read reads get S spaced
same_read reads get S quoted
same_read reads get S long --size 4
same_read reads get S missing --default fallback
same_read reads get NoSection k --default 'x y'
for key in num neg none hex big missing; do
    same_read reads int S "$key" 7
done
same_read reads int S missing -1

echo "== Files: bare names in the Windows directory, non-ASCII names"

rm -f "$windows_dir"/wkbare*.ini "$windows_dir"/WKBARE*.INI
ours profile set WKBARE1.INI Section Key "from wkestel" >/dev/null 2>&1
ref set wkbare2.ini Section Key "from Windows" >/dev/null 2>&1
if [ -f "$windows_dir/WKBARE1.INI" ] && [ -f "$windows_dir/wkbare2.ini" ]; then
    pass
else
    fail "a bare name was not written to the Windows directory: $(ls "$windows_dir")"
fi
[ "$(ref get wkbare1.ini section KEY)" = "from wkestel" ] && pass ||
    fail "Windows' functions do not read what wkestel.exe wrote under a bare name"
[ "$(ours profile get WKBARE2.INI SECTION key)" = "from Windows" ] && pass ||
    fail "wkestel.exe does not read what Windows' functions wrote under a bare name"

# A file name with characters of the ANSI code page: the arguments arrive in code page 1252,
# and the file must be created (and found) under its real name, UTF-8 on the host.
umlaut_name=$(printf 'n\303\244me.ini')      # näme.ini, as the host names it
umlaut_dos=$(printf 'C:\\wk\\n\303\244me.ini')
rm -f "$WINEPREFIX/drive_c/wk/$umlaut_name"
ours profile set "$umlaut_dos" Section Key value >"$work/out" 2>&1 || fail "set $umlaut_dos: $(cat "$work/out")"
if [ -f "$WINEPREFIX/drive_c/wk/$umlaut_name" ]; then
    pass
else
    fail "wkestel.exe created $(ls "$WINEPREFIX/drive_c/wk" | tr '\n' ' ') instead of $umlaut_name"
fi
[ "$(ref get "$umlaut_dos" Section Key)" = value ] && pass ||
    fail "Windows' functions do not find the file wkestel.exe wrote under a non-ASCII name"
other_name=$(printf 'gr\303\266\303\237e.ini')   # größe.ini
other_dos=$(printf 'C:\\wk\\gr\303\266\303\237e.ini')
ref set "$other_dos" Section Key "from Windows" >/dev/null 2>&1
[ "$(ours profile get "$other_dos" Section Key)" = "from Windows" ] && pass ||
    fail "wkestel.exe does not find $other_name, written by Windows' functions"
ours profile set "$other_dos" Section Key2 "from wkestel" >/dev/null 2>&1
if [ "$(ls "$WINEPREFIX/drive_c/wk" | grep -c 'gr.*e\.ini')" = 1 ] &&
    [ "$(ref get "$other_dos" Section Key2)" = "from wkestel" ]; then
    pass
else
    fail "wkestel.exe did not replace $other_name in place: $(ls "$WINEPREFIX/drive_c/wk")"
fi

echo "== Output: the bytes, and no CR added"

ours --help >"$work/help" 2>&1
if grep -q $'\r' "$work/help"; then
    fail "wkestel.exe --help has CR line ends"
else
    pass
fi
if grep -qi 'wine' "$work/help"; then
    fail "wkestel.exe --help speaks of Wine on Windows: $(grep -i wine "$work/help")"
else
    pass
fi
ours --version >"$work/version" 2>&1
[ "$(od -An -c "$work/version")" = "$(printf 'wkestel %s\n' "$version" | od -An -c)" ] && pass ||
    fail "wkestel.exe --version printed [$(od -An -c "$work/version")]"
ours profile get "$(dos_file ours values)" S Ansi >"$work/value"
[ "$(od -An -tx1 "$work/value")" = "$(printf 'Z\374rich \351t\351 \200\n' | od -An -tx1)" ] && pass ||
    fail "the value printed is not the bytes of the file: $(od -An -tx1 "$work/value")"

echo "== OEM conversion by Windows: the same table as on Linux"

for cp in 850 437; do
    WKESTEL_OEM_CODEPAGE=$cp wine "$oem_exe" >"$work/oem-$cp" 2>&1
    if cmp -s "$work/oem-$cp" "$oem_tables/$cp.txt"; then
        pass
    else
        fail "code page $cp converts differently on Windows:"
        diff "$oem_tables/$cp.txt" "$work/oem-$cp" | sed 's/^/  /'
    fi
done
WKESTEL_OEM_CODEPAGE=CP437 wine "$oem_exe" >"$work/oem-cp437" 2>&1
cmp -s "$work/oem-cp437" "$oem_tables/437.txt" && pass || fail "WKESTEL_OEM_CODEPAGE=CP437 was not taken"

echo "== Language strings: the library beside the program, read by the program itself"

# The demo's WZELKO.INI is not in place yet: the language is given, and the library is looked
# up in the working directory, the programs' folder.
(cd "$(dirname "$ours_exe")" && wine "$ours_exe" strings --language ENG 1 2) >"$work/strings" 2>&1
[ "$(cat "$work/strings")" = "$(printf '1\tGeneral Setup\n2\t&File')" ] && pass ||
    fail "wkestel.exe strings printed: $(cat "$work/strings")"

echo "== The program's version, as the about box reads it"

[ "$(wine "$version_exe")" = "$version" ] && pass ||
    fail "the running program's version reads as $(wine "$version_exe")"
[ "$(wine "$version_exe" "$(winepath -w "$ref_exe" 2>/dev/null)")" = none ] && pass ||
    fail "another program has the build's version: $(wine "$version_exe" "$(winepath -w "$ref_exe")")"

echo "== The settings: show, check and resave on the demo files"

for file in WZELKO.INI WZELKO32.INI; do
    cp "$demo_prefix/drive_c/windows/$file" "$windows_dir/$file"
done
ours show >"$work/show" 2>&1 && grep -q 'Windows directory: C:\\windows' "$work/show" && pass ||
    fail "wkestel.exe show: $(head -5 "$work/show")"
ours check >"$work/check" 2>&1
check_exit=$?
if [ $check_exit -eq 0 ] && cmp -s "$demo_prefix/drive_c/windows/WZELKO.INI" "$windows_dir/WZELKO.INI" &&
    [ ! -e "$windows_dir/WZELKO.BAK" ]; then
    pass
else
    fail "wkestel.exe check (exit $check_exit) on the demo files: $(cat "$work/check")"
fi
ours resave >"$work/resave" 2>&1 || fail "wkestel.exe resave: $(cat "$work/resave")"
cmp -s "$demo_prefix/drive_c/windows/WZELKO.INI" "$windows_dir/WZELKO.INI" && pass ||
    fail "resave changed WZELKO.INI on a file that needed no change"
{ cat "$demo_prefix/drive_c/windows/WZELKO.INI"; printf '\377'; } >"$work/expected.bak"
cmp -s "$work/expected.bak" "$windows_dir/WZELKO.BAK" && pass ||
    fail "WZELKO.BAK is not WZELKO.INI with the one byte 0xFF after it"

echo "== Saving on Windows: all or nothing, read-only files, the journal, leftovers, the lock"

demo_ini="$demo_prefix/drive_c/windows/WZELKO.INI"
demo_ini32="$demo_prefix/drive_c/windows/WZELKO32.INI"

# no_leftovers WHAT: no temporary file and no journal is left in the Windows directory (the
# lock file .wkestel.lock stays: it is the lock).
no_leftovers() {
    local left
    left=$(ls -A "$windows_dir" | grep -E '\.wkestel-|^\.wkestel\.journal$')
    [ -z "$left" ] && pass || fail "$1: left in the Windows directory: $left"
}

# A resave that changes both files: offx=7 is written 7.000000, and the missing Thermal key of
# WZELKO32.INI is written back after the last key of its section, where it was; the backup is
# WZELKO.INI as it was, with the one byte 0xFF after it.
changed_files() {
    sed 's/^offx=0\.000000\r$/offx=7\r/' "$demo_ini" >"$windows_dir/WZELKO.INI"
    grep -v '^Thermal=0' "$demo_ini32" >"$windows_dir/WZELKO32.INI"
}
changed_files
cp "$windows_dir/WZELKO.INI" "$work/before.ini"
rm -f "$windows_dir/WZELKO.BAK"
ours resave >"$work/resave" 2>&1 || fail "wkestel.exe resave of changed files: $(cat "$work/resave")"
sed 's/^offx=0\.000000\r$/offx=7.000000\r/' "$demo_ini" | cmp -s - "$windows_dir/WZELKO.INI" &&
    pass || fail "resave wrote WZELKO.INI wrong: $(diff <(tr -d '\r' <"$demo_ini") <(tr -d '\r' <"$windows_dir/WZELKO.INI"))"
cmp -s "$demo_ini32" "$windows_dir/WZELKO32.INI" && pass ||
    fail "resave wrote WZELKO32.INI wrong: $(od -c "$windows_dir/WZELKO32.INI" | head -20)"
{ cat "$work/before.ini"; printf '\377'; } | cmp -s - "$windows_dir/WZELKO.BAK" && pass ||
    fail "the backup of the resave is not WZELKO.INI as it was with 0xFF after it"
no_leftovers "resave"

# A read-only WZELKO32.INI: the whole save is refused, and no file changes, the backup neither.
changed_files
chmod 444 "$windows_dir/WZELKO32.INI"
for file in WZELKO.INI WZELKO32.INI WZELKO.BAK; do cp "$windows_dir/$file" "$work/kept-$file"; done
ours resave >"$work/resave" 2>&1
status=$?
if [ $status -eq 1 ] && grep -q 'WZELKO32.INI.*read-only' "$work/resave"; then
    pass
else
    fail "resave with a read-only WZELKO32.INI (exit $status): $(cat "$work/resave")"
fi
for file in WZELKO.INI WZELKO32.INI WZELKO.BAK; do
    cmp -s "$work/kept-$file" "$windows_dir/$file" && pass ||
        fail "$file changed in a save refused for a read-only WZELKO32.INI"
done
no_leftovers "refused resave"
# --force replaces it, and it stays read-only.
ours resave --force >"$work/resave" 2>&1 || fail "resave --force: $(cat "$work/resave")"
cmp -s "$demo_ini32" "$windows_dir/WZELKO32.INI" && pass ||
    fail "resave --force did not write the read-only WZELKO32.INI"
[ "$(stat -c %a "$windows_dir/WZELKO32.INI")" = 444 ] && pass ||
    fail "WZELKO32.INI lost its read-only mark: mode $(stat -c %a "$windows_dir/WZELKO32.INI")"
chmod 644 "$windows_dir/WZELKO32.INI"

# The same for one file through profile set.
printf '[S]\r\nk=old\r\n' >"$(host_file ours read_only.ini)"
chmod 444 "$(host_file ours read_only.ini)"
ours profile set "$(dos_file ours read_only.ini)" S k new >"$work/out" 2>&1
status=$?
[ $status -eq 1 ] && grep -q 'read-only' "$work/out" &&
    cmp -s "$(host_file ours read_only.ini)" <(printf '[S]\r\nk=old\r\n') && pass ||
    fail "profile set on a read-only file (exit $status): $(cat "$work/out")"
ours profile set --force "$(dos_file ours read_only.ini)" S k new >"$work/out" 2>&1 &&
    cmp -s "$(host_file ours read_only.ini)" <(printf '[S]\r\nk=new\r\n') &&
    [ "$(stat -c %a "$(host_file ours read_only.ini)")" = 444 ] && pass ||
    fail "profile set --force on a read-only file: $(cat "$work/out")"

# A hidden file stays hidden; a new file is not hidden, though its temporary file was.
printf '[S]\r\nk=1\r\n' >"$(host_file ours hidden.ini)"
wine attrib +h "$(dos_file ours hidden.ini)" >/dev/null 2>&1
ours profile set "$(dos_file ours hidden.ini)" S k 2 >/dev/null 2>&1
wine attrib "$(dos_file ours hidden.ini)" | cut -c1-12 | grep -q H && pass ||
    fail "a hidden file lost its mark: $(wine attrib "$(dos_file ours hidden.ini)")"
rm -f "$(host_file ours fresh.ini)"
ours profile set "$(dos_file ours fresh.ini)" S k 2 >/dev/null 2>&1
[ -f "$(host_file ours fresh.ini)" ] && ! wine attrib "$(dos_file ours fresh.ini)" | cut -c1-12 | grep -q H &&
    pass || fail "a new file is hidden: $(wine attrib "$(dos_file ours fresh.ini)")"

# A save killed after its journal was written: the next command finishes it before it reads.
# The journal names each temporary file and the file it replaces, each name ended by a NUL.
cp "$demo_ini" "$windows_dir/WZELKO.INI"
cp "$demo_ini32" "$windows_dir/WZELKO32.INI"
printf '[PLANTED]\r\nA=1\r\n' >"$windows_dir/.WZELKO.INI.wkestel-Ab12Cd"
printf '[PLANTED]\r\nB=2\r\n' >"$windows_dir/.WZELKO32.INI.wkestel-Ef34Gh"
printf 'wkestel journal 1\n%s\0%s\0%s\0%s\0end\n' \
    'C:\windows\.WZELKO.INI.wkestel-Ab12Cd' 'C:\windows\WZELKO.INI' \
    'C:\windows\.WZELKO32.INI.wkestel-Ef34Gh' 'C:\windows\WZELKO32.INI' \
    >"$windows_dir/.wkestel.journal"
[ "$(ours profile get WZELKO.INI PLANTED A 2>&1)" = 1 ] && pass ||
    fail "the journal was not completed before the read: $(ours profile get WZELKO.INI PLANTED A 2>&1)"
cmp -s "$windows_dir/WZELKO32.INI" <(printf '[PLANTED]\r\nB=2\r\n') && pass ||
    fail "the journal's second file was not put in place"
no_leftovers "completed journal"

# A journal cut short (the kill came while it was written) renames nothing; its temporary files
# are leftovers, which the next save removes, as it removes any older one of its file.
cp "$demo_ini" "$windows_dir/WZELKO.INI"
printf 'planted' >"$windows_dir/.WZELKO.INI.wkestel-Ij56Kl"
printf 'planted' >"$windows_dir/.WZELKO.INI.wkestel-Mn78Op"
printf 'wkestel journal 1\n%s\0%s\0' 'C:\windows\.WZELKO.INI.wkestel-Ij56Kl' \
    'C:\windows\WZELKO.INI' >"$windows_dir/.wkestel.journal"
touch -d '-1 hour' "$windows_dir"/.WZELKO.INI.wkestel-*
ours profile set WZELKO.INI AFTER key value >"$work/out" 2>&1 || fail "profile set: $(cat "$work/out")"
{ cat "$demo_ini"; printf '[AFTER]\r\nkey=value\r\n'; } | cmp -s - "$windows_dir/WZELKO.INI" &&
    pass || fail "the cut journal renamed something, or the set went wrong"
no_leftovers "cut journal and leftovers"
# A file of a similar name that is not this program's is never touched.
printf 'notes' >"$windows_dir/.WZELKO.INI.wkestel-notes.txt"
touch -d '-1 hour' "$windows_dir/.WZELKO.INI.wkestel-notes.txt"
ours profile set WZELKO.INI AFTER key other >/dev/null 2>&1
[ -f "$windows_dir/.WZELKO.INI.wkestel-notes.txt" ] && pass ||
    fail "a user's file of a similar name was removed"
rm -f "$windows_dir/.WZELKO.INI.wkestel-notes.txt"

# Devices and pipes in a settings file's place: read as missing (the default) with the reason
# on standard error, never written, and nothing waits.
mkfifo "$(host_file ours pipe.ini)"
for name in NUL CON COM1 pipe.ini; do
    got=$(timeout 60 wine "$ours_exe" profile get "$(dos_file ours "$name")" S k --default dflt \
        </dev/null 2>"$work/err")
    [ "$got" = dflt ] && grep -q 'not a regular file' "$work/err" && pass ||
        fail "profile get on $name printed [$got]: $(cat "$work/err")"
    timeout 60 wine "$ours_exe" profile set "$(dos_file ours "$name")" S k v </dev/null \
        >"$work/out" 2>&1
    status=$?
    [ $status -eq 1 ] && grep -q 'not a regular file' "$work/out" && pass ||
        fail "profile set on $name (exit $status): $(cat "$work/out")"
done

# Another writer holds the lock of the Windows directory: wkestel.exe waits for it at most 5 s,
# then says so and writes nothing. Once it is free, the same write goes through.
cp "$windows_dir/WZELKO.INI" "$work/unlocked.ini"
wine "$lock_exe" 'C:\windows' 15 >"$work/lock" 2>&1 &
holder=$!
for _ in $(seq 1 300); do
    grep -q held "$work/lock" && break
    sleep 0.1
done
if grep -q held "$work/lock"; then
    ours profile set WZELKO.INI LOCKED key value >"$work/out" 2>&1
    status=$?
    [ $status -eq 1 ] && grep -q 'another program is saving' "$work/out" &&
        cmp -s "$work/unlocked.ini" "$windows_dir/WZELKO.INI" && pass ||
        fail "profile set under another writer's lock (exit $status): $(cat "$work/out")"
else
    fail "hold_lock.exe did not take the lock: $(cat "$work/lock")"
fi
wait $holder
ours profile set WZELKO.INI LOCKED key value >"$work/out" 2>&1 &&
    [ "$(ours profile get WZELKO.INI LOCKED key)" = value ] && pass ||
    fail "profile set after the lock was released: $(cat "$work/out")"

# Two writers at once on different sections of one file: neither loses the other's change.
{
    printf '[FIRST]\r\nVALUE=0\r\n[SECOND]\r\nVALUE=0\r\n'
    for s in $(seq 1 40); do
        printf '[TABLE %d]\r\n' "$s"
        for k in $(seq 1 100); do printf 'K%d=0.125,0.25,0.5\r\n' "$k"; done
    done
} >"$work/large.ini"
both=0
for round in 1 2 3 4 5 6; do
    cp "$work/large.ini" "$(host_file ours concurrent.ini)"
    ours profile set "$(dos_file ours concurrent.ini)" FIRST VALUE "$round" >/dev/null 2>&1 &
    first=$!
    ours profile set "$(dos_file ours concurrent.ini)" SECOND VALUE "$round" >/dev/null 2>&1 &
    second=$!
    wait $first
    wait $second
    if grep -q "^VALUE=$round"$'\r'"\$" <(sed -n 2p "$(host_file ours concurrent.ini)") &&
        grep -q "^VALUE=$round"$'\r'"\$" <(sed -n 4p "$(host_file ours concurrent.ini)"); then
        both=$((both + 1))
    fi
done
[ $both -eq 6 ] && pass || fail "two writers at once: both changes kept in $both of 6 rounds"

echo "== Wine is not Windows: a blank line (the editor keeps it, Wine drops it)"

start blank_line '[A]\r\nk=1\r\n\r\n[B]\r\nk=2\r\n'
edit blank_line set A k 3
if cmp -s "$(host_file ours blank_line)" <(printf '[A]\r\nk=3\r\n\r\n[B]\r\nk=2\r\n'); then
    pass
else
    fail "wkestel.exe did not keep the blank line: $(od -c "$(host_file ours blank_line)")"
fi
if cmp -s "$(host_file ours blank_line)" "$(host_file ref blank_line)"; then
    echo "note: this Wine keeps blank lines as Windows does"
else
    echo "note: Wine dropped the blank line, as expected of Wine (Windows keeps it)"
fi

echo "$checks checks passed, $failures failed ($(($(date +%s) - started)) s)"
[ $failures -eq 0 ]
