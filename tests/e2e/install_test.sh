#!/usr/bin/env bash
# `cmake --install` into a fresh prefix, then moved: nothing may tie the tree
# to its place. bin/ holds only a relative link; no source path is left; the
# desktop entry and the metadata pass the real validators; the entry's icon is
# there at every size; the manual page sets cleanly; the stripped program
# has no .comment and nothing else is executable. The installed program,
# started through its link, plays a Game A heard at its beat: it found its
# wave files beside itself. The uninstall target leaves no file or folder.
source "$(dirname "$0")/lib.sh"
app=$1
build=$(cd "$(dirname "$app")" && pwd)
sources=$(cd "$(dirname "$0")/../.." && pwd)
app_id=org.tickplaysim.Nautrix

e2e_setup
cmake --install "$build" --prefix "$E2E_DIR/staged" --strip >/dev/null || e2e_fail "cmake --install failed"
mv "$E2E_DIR/staged" "$E2E_DIR/moved"
prefix=$E2E_DIR/moved

# The program's folder and its link.
[ "$(ls -A "$prefix/bin")" = nautrix ] || e2e_fail "bin/ holds $(ls -A "$prefix/bin" | tr '\n' ' ')"
link=$(readlink "$prefix/bin/nautrix" || true)
[ -n "$link" ] && [ "${link#/}" = "$link" ] || e2e_fail "bin/nautrix is no relative link: '$link'"
[ -z "$(readelf -S "$prefix/lib/nautrix/nautrix" | grep -F .comment)" ] || e2e_fail "the program keeps .comment"
executable=$(find "$prefix" -type f -perm /111 ! -path "$prefix/lib/nautrix/nautrix")
[ -z "$executable" ] || e2e_fail "executable but no program: $executable"
baked=$(grep -rlF "$sources" "$prefix" || true)
[ -z "$baked" ] || e2e_fail "the source path is baked into: $baked"

# The desktop entry, the metadata, the icons and the manual page.
entry=$prefix/share/applications/$app_id.desktop
desktop-file-validate "$entry" || e2e_fail "desktop-file-validate rejects $entry"
# The metadata, and the desktop entry it launches, as the tree holds them.
appstreamcli validate-tree --no-net "$prefix" >"$E2E_DIR/appstream.out" ||
  e2e_fail "appstreamcli rejects the metadata: $(cat "$E2E_DIR/appstream.out")"
grep -q "^$app_id.metainfo.xml" "$E2E_DIR/appstream.out" || e2e_fail "appstreamcli found no metadata"
icon=$(sed -n 's/^Icon=//p' "$entry")
for size in 16 22 24 32 48 64 128 256; do
  png=$prefix/share/icons/hicolor/${size}x${size}/apps/$icon.png
  [ "$(identify -format '%wx%h' "$png" 2>/dev/null)" = "${size}x${size}" ] ||
    e2e_fail "no ${size} x ${size} icon named $icon"
done
grep -q '<svg' "$prefix/share/icons/hicolor/scalable/apps/$icon.svg" || e2e_fail "no scalable icon named $icon"
man_warnings=$(zcat "$prefix/share/man/man6/nautrix.6.gz" | groff -man -ww -z -Tutf8 2>&1)
[ -z "$man_warnings" ] || e2e_fail "the manual page: $man_warnings"

# The installed program plays a game, heard on the sound server.
e2e_start_audio
e2e_record
e2e_start_app "$prefix/bin/nautrix"
e2e_key 1
e2e_wait_for 10 e2e_beat_heard || e2e_fail "the installed program's Game A is not heard at its beat"
e2e_stop_app

# Undone by the manifest of an install: nothing is left, no empty folder either.
cmake --install "$build" --prefix "$E2E_DIR/again" >/dev/null
cmake --build "$build" --target uninstall >/dev/null || e2e_fail "the uninstall target failed"
left=$(find "$E2E_DIR/again" -mindepth 1)
[ -z "$left" ] || e2e_fail "the uninstall left: $left"
