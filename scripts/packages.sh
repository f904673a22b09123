# shellcheck shell=bash
# The distribution's packages, by what they are for. Sourced, not run.
packages_build=(
  g++ cmake ninja-build ccache unixodbc-dev odbcinst libsqliteodbc sqlite3 libwxgtk3.2-dev
  libkrb5-dev gss-ntlmssp  # the check of a typed account
)
packages_test=(
  libgtest-dev googletest libbenchmark-dev                       # test and benchmark frameworks
  odbc-postgresql odbc-mariadb postgresql mariadb-server         # the other inventories, started by the tests
  g++-mingw-w64-x86-64-posix wine64 xz-utils                     # the Windows build with its toolkit, and where it runs
  winbind                                                        # NTLM under Wine
  xvfb openbox xdotool imagemagick                               # the virtual display, a user's hands, screenshots
  dbus at-spi2-core python3-pyatspi                              # what a screen reader is told
  clang-14 libclang-rt-14-dev clang-format-14 clang-tidy-14 git  # fuzzing and house style, pinned
)

# Installs the packages that are missing. With nothing missing it asks the network for nothing.
install_packages() {
  local missing=() name
  for name in "$@"; do
    dpkg-query -W -f='${Status}' "$name" 2>/dev/null | grep -q '^install ok installed' || missing+=("$name")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  command -v apt-get >/dev/null || {
    echo "This needs Debian 12 or a relative of it: apt-get is not here. Install by hand: ${missing[*]}" >&2
    return 1
  }
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "Packages are missing and neither root nor sudo is there. As root, run: apt-get install ${missing[*]}" >&2
      return 1
    fi
    as_root=(sudo)
  fi
  echo "Installing ${missing[*]}"
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq &&
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
      "${missing[@]}" >/dev/null || {
    echo "The packages could not be installed: ${missing[*]}. Is the network there, and may $(id -un) install?" >&2
    return 1
  }
}
