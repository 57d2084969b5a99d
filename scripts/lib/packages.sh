# Sourced by the scripts: need_packages NAME... installs those Debian packages that are missing.
#
# Asks nothing, works as root or through sudo, and touches neither network nor system when all of them are
# there already. Returns non-zero, with a message, when a package cannot be installed.

need_packages() {
    local name
    local -a missing=() as_root=()
    for name in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$name" 2>/dev/null)" = installed ] || missing+=("$name")
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing, and without sudo only root can install them: ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    as_root+=(env DEBIAN_FRONTEND=noninteractive)

    echo "Installing: ${missing[*]}"
    if ! "${as_root[@]}" apt-get update -qq </dev/null; then
        echo "apt-get update failed; trying with the package lists that are there." >&2
    fi
    if ! "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" </dev/null >/dev/null; then
        echo "Could not install: ${missing[*]}" >&2
        return 1
    fi
}
