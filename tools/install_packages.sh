# For ./run and ./test to source: installs what is missing on Debian and Ubuntu.

# Runs a command as root: directly, or through sudo.
as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "Not root and no sudo here. As root, run: $*" >&2
        return 1
    fi
}

apt_install() {
    as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -q --no-install-recommends "$@" </dev/null >&2
}

# install_missing WANTED ...
# WANTED is "package", or "command:package" when any program of that name will do. Does nothing, and
# asks no package tool, when all commands are there; installs the rest. All messages go to stderr.
install_missing() {
    local wanted package missing=() packages=()
    for wanted in "$@"; do
        package=${wanted##*:}
        if [ "$wanted" != "$package" ]; then
            command -v "${wanted%%:*}" >/dev/null || missing+=("$package")
        else
            packages+=("$package")
        fi
    done
    if [ ${#packages[@]} -gt 0 ] && command -v dpkg-query >/dev/null; then
        local installed
        installed=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "${packages[@]}" \
            2>/dev/null || true)
        for package in "${packages[@]}"; do
            grep -qx "installed $package" <<<"$installed" || missing+=("$package")
        done
    fi
    [ ${#missing[@]} -gt 0 ] || return 0

    if ! command -v apt-get >/dev/null; then
        echo "Missing here, under their Debian names: ${missing[*]}" >&2
        echo "There is no apt-get to install them with; please install them by hand." >&2
        return 1
    fi
    echo "Installing ${missing[*]}" >&2
    # The package lists of a fresh machine are empty, those of an old one name files that are gone.
    if ! apt-cache show "${missing[@]}" >/dev/null 2>&1 || ! apt_install "${missing[@]}"; then
        as_root apt-get update -q </dev/null >&2
        apt_install "${missing[@]}"
    fi
}
