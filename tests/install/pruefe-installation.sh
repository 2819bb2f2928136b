#!/usr/bin/env bash
# Installs the build into a throwaway prefix and checks what the desktop will see: both
# programs, a valid desktop entry that hands velmora:// links to the installed program, and
# the icon.
set -euo pipefail
build_dir="$1"
prefix="$(mktemp -d)"
trap 'rm -rf "$prefix"' EXIT

cmake --install "$build_dir" --prefix "$prefix" >/dev/null
entry="$prefix/share/applications/velmora.desktop"
fail() { echo "FAIL: $*" >&2; exit 1; }

[ -x "$prefix/bin/velmora" ] || fail "velmora not installed"
[ -x "$prefix/bin/velmora-cli" ] || fail "velmora-cli not installed"
[ -f "$prefix/share/icons/hicolor/scalable/apps/velmora.svg" ] || fail "icon not installed"
[ -f "$entry" ] || fail "desktop entry not installed"
desktop-file-validate "$entry" || fail "desktop entry is not valid"
grep -qx "MimeType=x-scheme-handler/velmora;" "$entry" || fail "the entry does not claim the velmora scheme"
grep -qx "Exec=$prefix/bin/velmora %u" "$entry" || fail "Exec does not start the installed program with the URL: $(grep ^Exec= "$entry")"
grep -qx "Icon=velmora" "$entry" || fail "icon name"
"$prefix/bin/velmora-cli" --help | grep -q "backup" || fail "the installed velmora-cli does not run"
echo "installation ok"
