#!/usr/bin/env bash
# What cmake --install puts into a system, looked at by the tools that systems read it with:
# package.sh CMAKE BUILD-FOLDER
set -euo pipefail

cmake=$1
build=$2
root=$(mktemp -d)
desktop=
cleanup() {
  [ -z "$desktop" ] || kill "$desktop" 2>/dev/null || true
  rm -rf "$root"
}
trap cleanup EXIT

fail() {
  echo "package.sh: $*" >&2
  exit 1
}

for tool in desktop-file-validate appstreamcli update-mime-database xmllint man groff gzip; do
  command -v "$tool" >/dev/null || fail "$tool is missing; tools/install-packages.sh test installs it"
done

usr=$root/usr
share=$usr/share
"$cmake" --install "$build" --prefix "$usr" >/dev/null

# All that a user of the test could have set stays out of it.
export HOME=$root/home XDG_DATA_HOME=$root/data XDG_CONFIG_HOME=$root/config
export XDG_CACHE_HOME=$root/cache XDG_RUNTIME_DIR=$root/run
mkdir -p "$HOME" "$XDG_DATA_HOME"
mkdir -m 700 "$XDG_RUNTIME_DIR"

# The programs, and no library or tool of the build.
listed=$(cd "$usr" && find . -type f -not -path './share/*' | sort | tr '\n' ' ')
[ "$listed" = "./bin/ledgerminder ./bin/ledgerminder-cli " ] || fail "installed outside share: $listed"
[ -z "$(find "$usr" -type d -empty)" ] || fail "empty folders"

# The desktop file, the metainfo, and what both name.
desktopfile=$share/applications/ledgerminder.desktop
told=$(desktop-file-validate "$desktopfile")
[ -z "$told" ] || fail "$told"
metainfo=$share/metainfo/uk.ledgerminder.LedgerMinder.metainfo.xml
appstreamcli validate --no-net "$metainfo" || fail "the metainfo is not valid"
! grep -rl '@[A-Za-z_]*@' "$metainfo" || fail "a place in the metainfo was not filled in"
version=$("$usr/bin/ledgerminder-cli" --version)
grep -q "release version=\"${version#LedgerMinder }\"" "$metainfo" || fail "the metainfo is of another version"
grep -qx 'Icon=ledgerminder' "$desktopfile" || fail "the desktop file names another icon"

# Each icon is as large as its folder says: bytes 16 to 23 of a PNG are its width and height.
for size in 16 22 24 32 48 64 128 256; do
  for icon in apps/ledgerminder mimetypes/application-x-ledgerminder; do
    picture=$share/icons/hicolor/${size}x$size/$icon.png
    wanted=$(printf '%08x%08x' "$size" "$size")
    [ "$(od -An -tx1 -j16 -N8 "$picture" | tr -d ' \n')" = "$wanted" ] || fail "$picture has another size"
  done
done
xmllint --noout "$share/icons/hicolor/scalable/"{apps/ledgerminder,mimetypes/application-x-ledgerminder}.svg

# The file type: the system's own reader takes it, and the desktop file opens it.
told=$(update-mime-database -V "$share/mime" 2>&1)
[[ $told != *[Ee]rror* && $told != *[Ww]arning* ]] || fail "$told"
grep -q 'application/x-ledgerminder:ledgerminder\.dat' "$share/mime/globs2" || fail "no name of data files"
grep -qx 'MimeType=application/x-ledgerminder;' "$desktopfile" || fail "the desktop file opens no data files"

# The manuals.
for program in ledgerminder ledgerminder-cli; do
  page=$share/man/man1/$program.1.gz
  told=$(LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)
  [ -z "$told" ] || fail "$page: $told"
  text=$(gzip -dc "$page")
  for option in $("$usr/bin/$program" --help | grep -o '\--[a-z0-9]*' | sort -u); do
    [[ $text == *"\\-\\-${option#--}"* ]] || fail "$page does not tell of $option"
  done
done

# The completion knows what the program tells of itself.
completion=$share/bash-completion/completions/ledgerminder-cli
bash -n "$completion"
# shellcheck source=/dev/null
source "$completion"
# What may follow the words, the last of which is being typed.
offered() {
  COMP_WORDS=(ledgerminder-cli "$@")
  COMP_CWORD=$#
  _ledgerminder_cli
  echo " ${COMPREPLY[*]} "
}
for command in init demo run pdf template export report ics forms; do
  "$usr/bin/ledgerminder-cli" --help | grep -q "^  $command " || fail "$command is no command"
  [[ $(offered "") == *" $command "* ]] || fail "$command is not completed"
done
for option in --dir --now --answer --force --help --version; do
  [[ $(offered --) == *" $option "* ]] || fail "$option is not completed"
done
[ "$(offered --dir /tmp pdf im)" = " import " ] || fail "pdf import: $(offered --dir /tmp pdf im)"
[ "$(offered ics export f --rf)" = " --rfc5545 " ] || fail "ics export: $(offered ics export f --rf)"

# Licence, changes and guide; every picture of the guide is there.
documents=$share/doc/ledgerminder
for file in copyright user-guide.md templates.md file-formats.md installing.md; do
  [ -s "$documents/$file" ] || fail "$file is missing"
done
gzip -t "$documents/changelog.gz" "$documents/changelog.Debian.gz"
gzip -dc "$documents/changelog.Debian.gz" | head -n 1 | grep -q "^ledgerminder (${version#LedgerMinder }-" ||
  fail "changelog.Debian is of another version"
while read -r picture; do
  [ -s "$documents/$picture" ] || fail "$picture is missing"
done < <(grep -oh 'images/[a-z0-9-]*\.png' "$documents"/*.md | sort -u)

# The programs run, and keep records in the user's folder, not beside themselves.
"$usr/bin/ledgerminder-cli" init >/dev/null
[ -f "$XDG_DATA_HOME/ledgerminder/LedgerMinder.dat" ] || fail "no records in the user's folder"
[ "$("$usr/bin/ledgerminder" --version)" = "$version" ] || fail "the two programs are of two versions"
# Three seconds: a program that lacks something ends sooner. It waits for the user's name, or says
# that a test beside this one runs the program too.
QT_QPA_PLATFORM=offscreen "$usr/bin/ledgerminder" >"$root/told" 2>&1 &
desktop=$!
sleep 3
kill -0 "$desktop" 2>/dev/null || fail "the desktop program ended: $(cat "$root/told")"
[ "$(find "$usr/bin" -type f | wc -l)" -eq 2 ] || fail "records beside the programs: $(ls "$usr/bin")"

# A data file is known by its first bytes under any name: those of a fresh one, without a password.
magic=$(sed -n 's/.*<match type="string" offset="0" value="\([0-9A-F]*\)".*/\1/p' "$share/mime/packages/ledgerminder.xml")
[ "$(head -c 32 "$XDG_DATA_HOME/ledgerminder/LedgerMinder.dat")" = "$magic" ] || fail "data files begin otherwise"
echo "The installed files are what a system expects."
