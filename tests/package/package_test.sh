#!/usr/bin/env bash
# The Debian package as a shop gets it: made once from this build with CPack, inspected (files,
# icon sizes, desktop entry, dependencies, manual page, no build paths, lintian), then, as
# root, installed with apt-get, started offscreen with an empty home folder, started again on
# Xvfb, asked for its version and help, and removed again, leaving the user's data alone.
# Usage: package_test.sh BUILD_DIR SOURCE_DIR. Exit status 77 (skipped) when not root, after
# the inspection has passed.
set -euo pipefail
export LC_ALL=C.UTF-8
build=$(cd "$1" && pwd)
source=$(cd "$2" && pwd)
work=$(mktemp -d)
chmod 755 "$work"
cleanup() { [ -n "${program:-}" ] && kill "$program" 2>/dev/null; rm -rf "$work"; }
trap cleanup EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }
check() { local what=$1; shift; "$@" || fail "$what"; }

cpack --config "$build/CPackConfig.cmake" -B "$work/out" >"$work/cpack.log" 2>&1 \
  || { cat "$work/cpack.log"; fail "cpack could not make the package"; }
version=$("$build/src/app/estimate" --version | sed 's/^見積書作成 //')
deb="$work/out/estimate_${version}_amd64.deb"
check "the package is named estimate_${version}_amd64.deb" test -f "$deb"
check "the package's version is the program's" test "$(dpkg-deb -f "$deb" Version)" = "$version"

# Files.
dpkg-deb -x "$deb" "$work/root"
files=(usr/bin/estimate usr/share/applications/estimate.desktop usr/share/icons/hicolor/scalable/apps/estimate.svg
       usr/share/man/man1/estimate.1.gz usr/share/doc/estimate/copyright usr/share/doc/estimate/changelog.gz)
for size in 16 24 32 48 64 128 256; do
  png=usr/share/icons/hicolor/${size}x${size}/apps/estimate.png
  files+=("$png")
  check "$png is $size x $size" sh -c "file '$work/root/$png' | grep -q 'PNG image data, $size x $size'"
done
for f in "${files[@]}"; do check "the package holds $f" test -f "$work/root/$f"; done
check "the program is executable" test -x "$work/root/usr/bin/estimate"
for font in "$build"/fonts/*.otf; do
  [ -e "$font" ] || continue
  check "the package holds the printing font $(basename "$font")" test -f "$work/root/usr/share/estimate/fonts/$(basename "$font")"
done

# The desktop entry.
desktop="$work/root/usr/share/applications/estimate.desktop"
check "desktop-file-validate accepts the desktop entry" desktop-file-validate "$desktop"
for line in 'Name=見積書作成' 'Exec=estimate' 'Icon=estimate' 'Categories=Office;'; do
  check "the desktop entry has $line" grep -qxF "$line" "$desktop"
done
check "the desktop entry has a Japanese comment" grep -q '^Comment\[ja\]=.' "$desktop"
check "the desktop entry has an English comment" grep -q '^Comment=[A-Za-z]' "$desktop"

# Dependencies: computed ones and those loaded at run time.
depends=$(dpkg-deb -f "$deb" Depends)
for package in libc6 libqt6widgets6 libqt6sql6 libzip4 fonts-noto-cjk qt6-translations-l10n libqt6sql6-sqlite libqt6sql6-psql; do
  check "the package depends on $package" sh -c "echo '$depends' | grep -qE '(^|, )$package( |,|\$)'"
done

# The manual page names every option the help names.
manual=$(MANWIDTH=200 man -l "$work/root/usr/share/man/man1/estimate.1.gz" 2>/dev/null)
for option in $("$build/src/app/estimate" --help | grep -oE -- '--[a-z-]+' | sort -u); do
  check "the manual page names $option" grep -qF -- "$option" <<<"$manual"
done

# No path of this build or checkout, in UTF-8 or in the UTF-16 of Qt's string literals.
for path in "$build" "$source"; do
  utf16=$(printf '%s' "$path" | iconv -f UTF-8 -t UTF-16LE | od -An -tx1 | tr -d ' \n' | sed 's/../\\x&/g')
  if grep -rlaF "$path" "$work/root" || LC_ALL=C grep -rlaP "$utf16" "$work/root"; then
    fail "the package holds the build path $path"
  fi
done

if command -v lintian >/dev/null; then
  lintian --fail-on error "$deb" 2>/dev/null || fail "lintian reports errors"
fi
echo "made and inspected: $(basename "$deb")"

if [ "$(id -u)" -ne 0 ]; then
  echo "SKIPPED: installing the package needs root (apt-get); the package was made and inspected"
  exit 77
fi
# One installation at a time on this machine.
exec 9>/tmp/estimate-package-test.lock
flock 9
if dpkg-query -W -f='${Status}' estimate 2>/dev/null | grep -q "install ok installed"; then
  echo "SKIPPED: estimate is already installed on this machine and is left as it is"
  exit 77
fi
apt() { DEBIAN_FRONTEND=noninteractive apt-get -y -q -o DPkg::Lock::Timeout=300 "$@" >"$work/apt.log" 2>&1 \
          || { cat "$work/apt.log"; fail "apt-get $*"; }; }
apt install --no-install-recommends "$deb"
trap 'apt-get -y -q remove estimate >/dev/null 2>&1; cleanup' EXIT

home="$work/home"
mkdir -p "$home"
data="$home/.local/share/EstimateApp/EstimateApp"
clean=(env -i HOME="$home" PATH=/usr/bin:/bin LANG=C.UTF-8 QT_QPA_PLATFORM=offscreen)
run() { "${clean[@]}" "$@"; }
check "the installed program answers --version" test "$(run estimate --version)" = "見積書作成 $version"
check "the installed program answers --help, naming the data folder" sh -c "
  env -i HOME='$home' PATH=/usr/bin:/bin estimate --help | grep -qF '$data'"
status=0; run estimate --no-such-option >/dev/null 2>&1 || status=$?
check "an unknown option ends with status 1" test "$status" = 1

# Started with an empty home folder, it makes the data folder and keeps running.
wait_for() { for _ in $(seq 1 300); do [ -e "$1" ] && return 0; sleep 0.1; done; return 1; }
start() {
  "${clean[@]}" estimate >"$work/program.log" 2>&1 &
  program=$!
  wait_for "$1" || { cat "$work/program.log"; fail "the program did not make $1"; }
  sleep 1
  kill -0 "$program" 2>/dev/null || { cat "$work/program.log"; fail "the program ended after start-up"; }
  kill "$program"; wait "$program" 2>/dev/null || true; program=
}
start "$data/temp/newfile.xlsx"
for folder in temp Data Mitsumori; do check "the data folder has $folder" test -d "$data/$folder"; done

# A customer database of an earlier version, in the user's data folder, is upgraded at start.
python3 - "$data/temp/KokyakuDB.sqlite" "$source/tests/db/layouts/KokyakuDB.1.sql" <<'PY'
import sqlite3, sys
with sqlite3.connect(sys.argv[1]) as db:
    db.executescript(open(sys.argv[2], encoding="utf-8").read())
PY
customers=$(python3 -c "import sqlite3,sys; print(sqlite3.connect(sys.argv[1]).execute('SELECT COUNT(*) FROM Kokyaku_Jyouhou').fetchone()[0])" "$data/temp/KokyakuDB.sqlite")
start "$data/temp/KokyakuDB.sqlite.bak-1"

# On a real X display (Xvfb), as from the desktop menu, its windows speak Japanese.
if command -v xvfb-run >/dev/null && command -v xwininfo >/dev/null; then
  xvfb-run -a -s "-screen 0 1280x1024x24" sh -c '
    env -i HOME="$1" PATH=/usr/bin:/bin LANG=C.UTF-8 DISPLAY="$DISPLAY" XAUTHORITY="$XAUTHORITY" estimate &
    program=$!
    for _ in $(seq 1 150); do
      xwininfo -root -tree >"$2" 2>/dev/null
      LC_ALL=C.UTF-8 grep -qP "^\s+0x[0-9a-f]+ \"[^\"]*\p{Han}" "$2" && break
      sleep 0.2
    done
    window=$(LC_ALL=C.UTF-8 grep -oP "^\s+\K0x[0-9a-f]+(?= \"[^\"]*\p{Han})" "$2" | head -1)
    [ -n "$window" ] && xprop -id "$window" WM_CLASS _NET_WM_ICON | cut -c1-80 >"$3"
    kill "$program"' sh "$home" "$work/windows" "$work/window-properties" >/dev/null 2>&1 || true
  LC_ALL=C.UTF-8 grep -qP '^\s+0x[0-9a-f]+ "[^"]*\p{Han}' "$work/windows" \
    || { cat "$work/windows"; fail "no window with a Japanese title on the X display"; }
  check "the window belongs to the desktop entry's class EstimateApp" grep -q 'WM_CLASS.*"EstimateApp"' "$work/window-properties"
  check "the window carries the installed icon" grep -q '_NET_WM_ICON(CARDINAL) =' "$work/window-properties"
  echo "windows on X: $(LC_ALL=C.UTF-8 grep -oP '^\s+0x[0-9a-f]+ "\K[^"]*\p{Han}[^"]*' "$work/windows" | paste -sd,)"
fi
python3 - "$data/temp/KokyakuDB.sqlite" "$customers" <<'PY' || fail "the customer database was not upgraded with every row"
import sqlite3, sys
db = sqlite3.connect(sys.argv[1])
assert db.execute('SELECT version FROM SchemaVersion').fetchone()[0] == 2
assert db.execute('SELECT COUNT(*) FROM Kokyaku_Peppol').fetchone()[0] == 0
assert db.execute('SELECT COUNT(*) FROM Kokyaku_Jyouhou').fetchone()[0] == int(sys.argv[2])
PY

apt remove estimate
trap cleanup EXIT
check "apt-get remove takes the program away" test ! -e /usr/bin/estimate
check "apt-get remove leaves the user's data" test -f "$data/temp/KokyakuDB.sqlite"
echo "installed, started, upgraded a database, removed"
