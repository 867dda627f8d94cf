# For ./run, ./test, bench/compare, tools/fuzz and tools/make_icons to source, with `here` set to the root of
# the project: installs what is missing on Debian and Ubuntu. All messages go to stderr, what apt
# prints goes to build/packages.log.

packages_log="$here/build/packages.log"

# Runs a command as root: directly, or through sudo.
as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@" </dev/null
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "That needs root, and there is no sudo here. As root, run: $*" >&2
        return 1
    fi
}

apt_install() {
    as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -q --no-install-recommends "$@" >>"$packages_log" 2>&1
}

# True if the package lists of this machine lead to all of these packages.
can_install() {
    command -v apt-get >/dev/null && apt-get install -s --no-install-recommends "$@" &>/dev/null
}

# install_missing WANTED ...
# WANTED is "package", or "command:package" where any program of that name will do. Installs those
# that are not there; when all are, it costs no more than looking for them.
install_missing() {
    local wanted package missing=() packages=()
    for wanted in "$@"; do
        package=${wanted##*:}
        if [ "$wanted" = "$package" ]; then
            packages+=("$package")
        elif ! command -v "${wanted%%:*}" >/dev/null; then
            missing+=("$package")
        fi
    done
    if [ ${#packages[@]} -gt 0 ] && command -v dpkg-query >/dev/null; then
        local installed
        installed=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "${packages[@]}" \
            2>/dev/null || true)
        for package in "${packages[@]}"; do
            grep -qxF "installed $package" <<<"$installed" || missing+=("$package")
        done
    fi
    [ ${#missing[@]} -gt 0 ] || return 0

    if ! command -v apt-get >/dev/null; then
        echo "Missing here, under their Debian names: ${missing[*]}" >&2
        echo "There is no apt-get to install them with; please install them by hand." >&2
        return 1
    fi
    mkdir -p "$(dirname -- "$packages_log")"
    echo "Installing ${missing[*]} (log: build/packages.log)" >&2
    # A fresh machine has no package lists, an old one may have lists of files that are gone.
    if can_install "${missing[@]}" && apt_install "${missing[@]}"; then
        return 0
    fi
    as_root apt-get update -q >>"$packages_log" 2>&1 || true
    if ! apt_install "${missing[@]}"; then
        tail -n 20 "$packages_log" >&2
        echo "Could not install ${missing[*]}, see build/packages.log" >&2
        return 1
    fi
}
