#!/usr/bin/env bash
# Installs what ZunWiz needs to build, test and run on Debian 12 (run as root, or with sudo).
set -euo pipefail
# cups, cups-client, cups-filters: the printer tests run a private CUPS scheduler with
# the generic PDF model and check it with lpstat.
pkgs=(build-essential cmake pkg-config googletest libgtest-dev libgmock-dev
      qt6-base-dev libcups2-dev
      # the wizard window reads the frame an X window manager draws (docs/startup.md)
      libxcb1-dev
      # a virtual X server and a window manager: the tests at 120 dots an inch and
      # of the window's frame (docs/startup.md, "Twips and pixels")
      xvfb xauth openbox
      # Qt's own translations: the boxes' buttons in the user's language
      qt6-translations-l10n
      cups cups-client cups-filters
      # desktop-file-validate checks the launchers that shortcuts become
      desktop-file-utils
      # the Ansible module's test runs a playbook against this machine
      ansible-core
      # fonts drawn in place of the Windows fonts option files name (docs/controls.md)
      fonts-liberation2 fonts-crosextra-carlito fonts-crosextra-caladea fonts-dejavu-core
      fonts-urw-base35 fonts-wine
      # the East Asian faces that Japanese, Chinese and Korean licences name
      fonts-noto-cjk)
missing=()
for p in "${pkgs[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  SUDO=""; [ "$(id -u)" -ne 0 ] && SUDO=sudo
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
