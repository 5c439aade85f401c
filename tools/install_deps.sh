#!/bin/bash
# install_deps.sh [--ci]: installs the Debian packages that are missing, and does nothing when none is.
# --ci adds the packages that only the checks use.
set -euo pipefail

packages=(
    make g++ cmake ninja-build ccache
    qt6-base-dev qt6-svg-dev libqt6svg6 libgl-dev
    libsqlitecpp-dev libsqlite3-dev libfontconfig-dev
    xvfb openbox xdotool fontconfig fonts-dejavu-core poppler-utils
)
if [[ "${1:-}" == --ci ]]; then
    packages+=(clang-format clang-tidy)
fi

if ! command -v dpkg-query >/dev/null; then
    echo "install_deps.sh: no Debian packages here; install by hand what is not there yet: ${packages[*]}" >&2
    exit 0
fi

missing=()
for package in "${packages[@]}"; do
    status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
    [[ "$status" == "install ok installed" ]] || missing+=("$package")
done
[[ ${#missing[@]} -eq 0 ]] && exit 0

as_root=()
[[ $(id -u) -eq 0 ]] || as_root=(sudo)
echo "Installing ${missing[*]}"
"${as_root[@]}" apt-get update -qq </dev/null
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" </dev/null
