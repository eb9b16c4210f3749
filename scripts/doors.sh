# shellcheck shell=bash
# What ./run and ./test share: packages, build steps with a log each, and plain words about both.
# The caller stands in the root of the checkout.

source scripts/packages.sh

logs=build/logs

say() { printf '%s\n' "$*"; }

fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

# The packages among the arguments that this machine lacks.
missing_packages() {
    local installed package
    # dpkg-query fails when it knows one of the names not at all; what it printed of the others holds.
    installed=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "$@" 2>/dev/null || true)
    installed=" $(sed -n 's/^installed //p' <<<"$installed" | tr '\n' ' ')"
    for package in "$@"; do
        [[ $installed == *" $package "* ]] || printf '%s\n' "$package"
    done
}

# Runs a command as root: at once when we are, else through sudo, which asks.
as_root() {
    if [[ $EUID -eq 0 ]]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        fail "This needs root, and there is no sudo here. Run this as root, then start again:
  apt-get update && apt-get install -y --no-install-recommends ${missing[*]}"
    fi
}

# Installs what is missing of the named packages, and asks for root only then.
install_packages() {
    command -v dpkg-query >/dev/null || fail "This needs a Debian 12 machine: there is no dpkg here."
    mapfile -t missing < <(missing_packages "$@")
    [[ ${#missing[@]} -eq 0 ]] && return
    say "These Debian packages are missing and will be installed: ${missing[*]}"
    [[ $EUID -eq 0 ]] || say "Installing them takes root; sudo may ask for your password."
    local apt=(env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=600)
    mkdir -p "$logs"
    as_root "${apt[@]}" update >"$logs/packages.log" 2>&1 || log_and_fail "$logs/packages.log" "apt-get update failed"
    as_root "${apt[@]}" install -y --no-install-recommends "${missing[@]}" >>"$logs/packages.log" 2>&1 ||
        log_and_fail "$logs/packages.log" "apt-get could not install the packages"
    say "Installed."
}

# The end of a log, short enough for a terminal, then the reason to stop.
log_and_fail() {
    tail -n 60 "$1" | tail -c 8000 >&2
    fail "$2. The whole log: $1"
}

# step NAME LOG COMMAND...: runs the command into build/logs/LOG, says how long it took, shows the log's end on failure.
step() {
    local name=$1 log=$logs/$2 start=$SECONDS
    shift 2
    mkdir -p "$logs"
    printf '%-34s ' "$name"
    if "$@" >"$log" 2>&1; then
        printf 'ok, %d s\n' $((SECONDS - start))
    else
        printf 'FAILED after %d s\n' $((SECONDS - start))
        log_and_fail "$log" "$name failed"
    fi
}

# Makes a build folder ready; ninja repeats it by itself when a CMake file changes, the presets excepted.
configure() {
    [[ build/$1/build.ninja -nt CMakePresets.json ]] || step "Configuring the $1 build" "$1-configure.log" cmake --preset "$1"
}

# build PRESET TARGET: compiles; silent when nothing was to be done.
build() {
    local preset=$1 target=$2
    configure "$preset"
    step "Building ($preset)" "$preset-build.log" cmake --build --preset "$preset" --target "$target"
}
