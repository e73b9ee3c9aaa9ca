#!/bin/bash
# Makes a disk image of the program that every Mac opens: builds the bundle, takes the libraries in, signs it with the
# hardened runtime, has it notarised and staples the ticket. Runs on a Mac.
#   packaging/macos/package.sh [direct | sandbox]
# SIGN_AS names the certificate ("Developer ID Application: ..."); without it the bundle is signed for this Mac alone.
# NOTARY_PROFILE names what "xcrun notarytool store-credentials" has stored; without it nothing is notarised.
set -eu
cd "$(dirname "$0")/../.."
kind=${1-direct}
entitlements=$PWD/packaging/macos/$kind.entitlements
[ -f "$entitlements" ] || { echo "usage: packaging/macos/package.sh [direct | sandbox]" >&2; exit 2; }
[ "$(uname)" = Darwin ] || { echo "package.sh: runs on a Mac alone" >&2; exit 1; }
identity=${SIGN_AS:--}

cmake -S . -B build/macos -DCMAKE_BUILD_TYPE=Release -DLUMORA_TESTS=OFF
cmake --build build/macos --target lumora-screenshot -j "$(sysctl -n hw.ncpu)"
stage=build/macos/image
bundle="$stage/Lumora Mac Screenshot.app"
rm -rf "$stage"
mkdir -p "$stage"
cp -R build/macos/lumora-screenshot.app "$bundle"
macdeployqt "$bundle" -always-overwrite

# A signature from outside needs the time of an authority; one for this Mac has none.
sign() {
    if [ "$identity" = - ]; then
        codesign --force --options runtime --sign - "$@"
    else
        codesign --force --options runtime --timestamp --sign "$identity" "$@"
    fi
}
# What lies inside first: the bundle's signature covers it.
find "$bundle/Contents/PlugIns" "$bundle/Contents/Frameworks" -type f -name '*.dylib' -print0 |
    while IFS= read -r -d '' library; do sign "$library"; done
for framework in "$bundle"/Contents/Frameworks/*.framework; do
    sign "$framework"
done
sign --entitlements "$entitlements" "$bundle"
codesign --verify --deep --strict --verbose=2 "$bundle"

image="build/macos/Lumora Mac Screenshot.dmg"
ln -s /Applications "$stage/Applications"
hdiutil create -volname "Lumora Mac Screenshot" -srcfolder "$stage" -format UDZO -ov "$image"
if [ -n "${NOTARY_PROFILE-}" ]; then
    sign "$image"
    xcrun notarytool submit "$image" --keychain-profile "$NOTARY_PROFILE" --wait
    xcrun stapler staple "$image"
    spctl --assess --type open --context context:primary-signature --verbose "$image"
fi
echo "$image"
