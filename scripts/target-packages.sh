#!/usr/bin/env bash
# Fetches another target's build of the libraries that the tool and the
# example link (libpng, and zlib under it) into a folder of the build tree,
# where the toolchain files look for them:
#   scripts/target-packages.sh <folder> <Debian architecture>
#
# Nothing is installed on the machine and no foreign architecture is added
# to it: apt runs with its own package lists, cache and empty status under
# <folder>/apt, for the target's architecture alone, downloads the -dev
# packages by name and dpkg -x unpacks them into <folder>.  Only their headers
# and static archives are kept (the .so links would point into runtime
# packages that are not fetched): the programs carry the image library in
# themselves and run with nothing of the target's but its C and C++ runtime,
# natively or under the emulator.  A second run with the same folder does
# nothing.
set -euo pipefail
folder=$1
arch=$2
packages=(libpng-dev zlib1g-dev)

stamp=$folder/.fetched
if [ -f "$stamp" ] && [ "$(cat "$stamp")" = "$arch ${packages[*]}" ]; then
  exit 0
fi
echo "fetching ${packages[*]} for $arch"
state=$folder/apt
rm -rf "$folder"
mkdir -p "$state/lists/partial" "$state/cache/archives/partial" "$state/debs"
touch "$state/status"
# The downloads land in folders of whoever runs this, so apt keeps that user
# rather than switching to its sandbox user (which could not write there).
apt_options=(-q -o "APT::Architecture=$arch" -o "APT::Architectures::=$arch"
             -o "Dir::State::Lists=$state/lists" -o "Dir::Cache=$state/cache"
             -o "Dir::State::status=$state/status" -o "APT::Sandbox::User=$(id -un)")
# Any bookworm build of the packages will do, so a list that fails to come
# (a mirror in the middle of a sync, say) is not fatal as long as the
# packages are found in the others.
apt-get "${apt_options[@]}" update > "$state/update.log" 2>&1 ||
  echo "warning: some package lists for $arch did not come; going on with the others"
(cd "$state/debs" && apt-get "${apt_options[@]}" download "${packages[@]}") > "$state/download.log" 2>&1 ||
  { cat "$state/update.log" "$state/download.log"; exit 1; }
for deb in "$state/debs"/*.deb; do
  dpkg -x "$deb" "$folder"
done
find "$folder/usr/lib" -name '*.so' -delete
rm -rf "$state/lists" "$state/cache"
echo "$arch ${packages[*]}" > "$stamp"
