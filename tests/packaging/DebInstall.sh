#!/usr/bin/env bash
# Builds the Debian package of the build folder $1 with cpack, unpacks it into a temporary root
# with dpkg -x, checks what it holds and runs dorvanta-cli --help from there.
# Exit 77 (skipped) when cpack or dpkg is not installed or the build has no dorvanta-cli.
set -u
build=$1
for tool in cpack dpkg dpkg-deb; do
    if ! command -v "$tool" >/dev/null; then
        echo "SKIPPED: $tool is not installed, so the package cannot be built and unpacked"
        exit 77
    fi
done
if [ ! -x "$build/cli/dorvanta-cli" ] && [ ! -x "$build/dorvanta-cli" ]; then
    echo "SKIPPED: $build holds no dorvanta-cli (build every target first)"
    exit 77
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAILED: $*"; exit 1; }

# gzip is quicker than xz and enough for a package that is thrown away.
(cd "$build" && cpack -G DEB -B "$work/out" -D CPACK_DEBIAN_COMPRESSION_TYPE=gzip) >"$work/cpack.log" 2>&1 ||
    { cat "$work/cpack.log"; fail "cpack -G DEB"; }
deb=$(ls "$work"/out/*.deb 2>/dev/null | head -n 1)
[ -n "$deb" ] || { cat "$work/cpack.log"; fail "cpack made no .deb"; }
echo "package: $(basename "$deb")"
echo "Depends: $(dpkg-deb -f "$deb" Depends)"
dpkg-deb -f "$deb" Depends | grep -q libc6 || fail "the package names no dependency on the C library"

dpkg -x "$deb" "$work/root" || fail "dpkg -x"
root=$work/root/usr
for f in bin/dorvanta-cli share/dorvanta/languages/italiano.lng share/dorvanta/languages/english.lng \
    share/applications/dorvanta.desktop share/icons/hicolor/scalable/apps/dorvanta.svg; do
    [ -e "$root/$f" ] || fail "the package lacks /usr/$f"
done
ls "$root"/share/man/man1/dorvanta-cli.1* >/dev/null 2>&1 || fail "the package lacks the manual page of dorvanta-cli"

# A sanitizer build's programs need their runtime, which the package names as a dependency; leaks
# at exit are not this test's business.
ASAN_OPTIONS=detect_leaks=0 "$root/bin/dorvanta-cli" --help >"$work/help.txt" 2>&1 ||
    { cat "$work/help.txt"; fail "dorvanta-cli --help from the unpacked package"; }
grep -q develop "$work/help.txt" || { cat "$work/help.txt"; fail "dorvanta-cli --help names no develop command"; }
echo "dorvanta-cli --help from the unpacked package: $(wc -l <"$work/help.txt") lines"
