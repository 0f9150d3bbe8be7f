#!/usr/bin/env bash
# Installs the build into a staging prefix and checks what a desktop and a
# user meet: the desktop entry, the file type and the AppStream data pass
# the Debian tools, and the installed program answers without a display,
# finding its data folder from its own place.
# Usage: install_test.sh BUILD_FOLDER
set -uo pipefail

build=$1
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT
failures=0

check() {  # check DESCRIPTION COMMAND...: runs the command, reports its outcome
  local description=$1
  shift
  if "$@" >"$stage/out" 2>&1; then
    echo "ok: $description"
  else
    echo "FAILED: $description"
    sed 's/^/    /' "$stage/out"
    failures=$((failures + 1))
  fi
}

contains() {  # contains FILE TEXT: the file holds the exact text on a line of its own
  grep -qxF -- "$2" "$1"
}

prefix=$stage/prefix
check "cmake --install into a staging prefix" cmake --install "$build" --prefix "$prefix"

share=$prefix/share
for file in bin/orvane share/orvane/Lang.ini share/orvane/orvan.ini share/orvane/demo/demo.orx \
            share/applications/org.orvane.Orvane.desktop share/mime/packages/org.orvane.Orvane.xml \
            share/metainfo/org.orvane.Orvane.metainfo.xml \
            share/icons/hicolor/scalable/apps/org.orvane.Orvane.svg; do
  check "installed: $file" test -s "$prefix/$file"
done

check "desktop-file-validate" desktop-file-validate "$share/applications/org.orvane.Orvane.desktop"
check "appstreamcli validate" appstreamcli validate --no-net "$share/metainfo/org.orvane.Orvane.metainfo.xml"
check "the icon is an SVG picture" xmllint --noout "$share/icons/hicolor/scalable/apps/org.orvane.Orvane.svg"

# The MIME package compiled as the system compiles it; ".orx" by name and by
# its first line.
check "update-mime-database" update-mime-database -V "$share/mime"
check "the playlist type is declared" test -s "$share/mime/application/x-orvane-playlist.xml"
check "*.orx names the playlist type" grep -q '^[0-9]*:application/x-orvane-playlist:\*\.orx$' "$share/mime/globs2"
check "#EXTORX is the playlist type's magic" grep -aqF '#EXTORX' "$share/mime/magic"

# The desktop entry offers every type of the file type package.
check "the desktop entry opens playlists" \
  grep -q '^MimeType=.*application/x-orvane-playlist;' "$share/applications/org.orvane.Orvane.desktop"

# The installed program, as a user without a display would start it; a
# home of its own so that nothing of the machine's user is read or written.
home=$stage/home
mkdir -p "$home"
run() {
  env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM -u XDG_CONFIG_HOME -u XDG_DATA_HOME \
    HOME="$home" XDG_DATA_DIRS=/nonexistent "$prefix/bin/orvane" "$@"
}
check "orvane --version" bash -c "$(declare -f run); prefix='$prefix' home='$home'; \
  [ \"\$(run --version)\" = 'Orvane 0.5b' ]"
check "orvane --help without a display" bash -c "$(declare -f run); prefix='$prefix' home='$home'; \
  run --help | grep -q '^Usage: orvane'"
check "an unknown option exits 2" bash -c "$(declare -f run); prefix='$prefix' home='$home'; \
  run --no-such-option; [ \$? -eq 2 ]"

# Without --language the check reads the language of the first orvan.ini,
# found in the installed data folder, and writes nothing for the user.
run --check "$share/orvane/Lang.ini" >"$stage/lang" 2>&1
check "orvane --check on the installed Lang.ini exits 0" test $? -eq 0
check "  it is accepted" contains "$stage/lang" "OK"
check "  with the installed languages" contains "$stage/lang" "languages: Français;English"
check "  in the language of the installed orvan.ini" contains "$stage/lang" "column: 1"
check "  leaving the user's folders alone" test -z "$(ls -A "$home")"

run --check "$share/orvane/demo/demo.orx" >"$stage/demo" 2>&1
check "the installed demo playlist names the installed media" \
  grep -qF "$share/orvane/demo/deux langues.avi" "$stage/demo"
check "  and is accepted" contains "$stage/demo" "OK"

if [ "$failures" -gt 0 ]; then
  echo "$failures check(s) failed"
  exit 1
fi
