# The environment of `run` and `test`: packages, builds, a display and a Wine prefix. Sourced, never run. Whoever
# sources it gets an EXIT trap that ends what was started here.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$root/build
logs=$build/logs

packages_native=(g++ cmake ninja-build ccache googletest)
packages_windows=(g++-mingw-w64-x86-64-posix mingw-w64-tools libwine-dev wine wine64 xvfb xauth
    wine64-preloader # keeps the random place of the heap off Wine's own page: one start in 10,000 fails without it
    fonts-liberation fonts-wine fonts-droid-fallback fonts-open-sans
    fp-utils) # brings chmcmd, with 250 MB of sources that it insists on
packages_checks=(clang-format clang-tidy git python3)
packages_desktop=(x11vnc novnc websockify)
packages_e2e=(python3 sqlite3 xdotool imagemagick poppler-utils)
packages_print=(cups printer-driver-cups-pdf)

export CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1
# What a source includes is taken from the compiler's list of it, not from a run of the preprocessor before each
# compilation; and a precompiled header counts by its contents.
export CCACHE_DEPEND=1 CCACHE_SLOPPINESS=pch_defines,time_macros
export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache

say() { printf '%s\n' "$*" >&2; }
die() {
    say "$*"
    exit 1
}

as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        die "Installing packages needs root: run as root or install sudo."
    fi
}

# Installs the named Debian packages that are missing; asks no package server when none is.
need_packages() {
    local package missing=()
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    say "Installing: ${missing[*]}"
    mkdir -p "$logs"
    if ! { as_root apt-get -o Acquire::Retries=3 update && as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get -o Acquire::Retries=3 install -y --no-install-recommends "${missing[@]}"; } > "$logs/apt.log" 2>&1; then
        tail -n 20 "$logs/apt.log" >&2
        die "The packages could not be installed; the whole log is $logs/apt.log"
    fi
}

# Fetches the sources that no Debian package brings; does nothing once they are there.
need_sources() {
    local stamp=$root/.cache/deps/sqlite3/integrity
    [ -f "$stamp" ] || command -v npm >/dev/null || need_packages npm ca-certificates
    "$root/cmake/fetch-deps" || die "The third-party sources could not be fetched."
}

# Configures a preset once; ninja repeats it by itself when a CMake file changes. Prints the log of a failure.
configure() {
    local preset=$1 log=$logs/configure-$1.log
    [ -f "$build/$preset/build.ninja" ] && return 0
    mkdir -p "$logs"
    say "Configuring $preset"
    (cd "$root" && cmake --preset "$preset") > "$log" 2>&1 || {
        cat "$log" >&2
        return 1
    }
}

# Builds the targets of a preset (all of them when none is named). Prints the log of a failure.
build_preset() {
    local preset=$1 log=$logs/build-$1.log
    shift
    configure "$preset" || return 1
    say "Building $preset"
    ninja -C "$build/$preset" -k 0 "$@" > "$log" 2>&1 || {
        grep -vE '^\[[0-9]+/[0-9]+\] (Building|Linking)' "$log" | tail -n 200 >&2
        return 1
    }
}

started=()
folders=()
cleanup() {
    local status=$? pid
    trap - EXIT INT TERM
    if [ -n "${WINEPREFIX:-}" ] && [ -d "$WINEPREFIX" ] && command -v wine >/dev/null; then
        WINEDEBUG=-all timeout 20 "$(wineserver_path)" -k 2>/dev/null
    fi
    for pid in "${started[@]}"; do
        kill "$pid" 2>/dev/null || as_root kill "$pid" 2>/dev/null
        wait "$pid" 2>/dev/null # or it writes into a folder that is being removed
    done
    [ ${#folders[@]} = 0 ] || as_root rm -rf "${folders[@]}"
    exit "$status"
}
trap cleanup EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

wineserver_path() { command -v wineserver || echo /usr/lib/wine/wineserver; }

# Starts a virtual display of its own, of the given size, and points DISPLAY at it. The server itself picks the
# first free number, so that two runs on one machine do not meet. It does not begin anew when its last client goes, as
# it does by itself between two programs: one that connects at that moment is thrown out, and ends with 1.
start_display() {
    local size=${1:-1600x1200x24} pipe number
    mkdir -p "$logs"
    pipe=$(mktemp -u)
    mkfifo "$pipe"
    Xvfb -displayfd 3 -screen 0 "$size" -noreset -nolisten tcp 3> "$pipe" 2> "$logs/xvfb.log" &
    started+=($!)
    read -r -t 20 number < "$pipe" || die "The virtual display did not start: $(cat "$logs/xvfb.log")"
    rm -f "$pipe"
    export DISPLAY=:$number
    unset WAYLAND_DISPLAY XAUTHORITY
}

# Ends the virtual display that was started last.
end_display() {
    local last=$((${#started[@]} - 1))
    kill "${started[last]}" 2>/dev/null
    wait "${started[last]}" 2>/dev/null
    unset "started[last]"
}

# Starts a print server of its own whose one printer, "Pellmark", makes a PDF of every document, and points the
# programs that print to it. The documents go to the folder PDF in the home folder, the packaged driver's choice.
start_printer() {
    local home tries=0 sudo=()
    home=$(mktemp -d)
    folders+=("$home")
    mkdir -p "$logs" "$home"/{root,run,cache,spool/tmp}
    chmod 755 "$home" # the filters are no root's
    cat > "$home/root/cupsd.conf" <<TEXT
Listen $home/run/socket
Browsing Off
WebInterface No
DefaultAuthType None
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order deny,allow
    Allow all
  </Limit>
</Policy>
TEXT
    cat > "$home/root/cups-files.conf" <<TEXT
ServerRoot $home/root
StateDir $home/run
CacheDir $home/cache
RequestRoot $home/spool
TempDir $home/spool/tmp
ErrorLog $home/error.log
AccessLog $home/access.log
PageLog $home/page.log
SystemGroup root
TEXT
    # Without as_root: a function in the background would be the process that is ended in its place.
    [ "$(id -u)" = 0 ] || sudo=(sudo)
    "${sudo[@]}" /usr/sbin/cupsd -f -c "$home/root/cupsd.conf" -s "$home/root/cups-files.conf" \
        > "$logs/cupsd.log" 2>&1 &
    started+=($!)
    export CUPS_SERVER=$home/run/socket
    until lpstat -r 2>/dev/null | grep -q 'is running'; do
        tries=$((tries + 1))
        [ "$tries" -lt 100 ] || die "The print server did not start: $(cat "$logs/cupsd.log")"
        sleep 0.1
    done
    {
        as_root env CUPS_SERVER="$CUPS_SERVER" lpadmin -p Pellmark -E -v cups-pdf:/ -m lsb/usr/cups-pdf/CUPS-PDF_opt.ppd \
            -o PageSize=A4 && lpadmin -d Pellmark
    } >> "$logs/cupsd.log" 2>&1 || die "The printer could not be made: $(cat "$logs/cupsd.log")"
}

# Makes the Wine prefix build/NAME the current one, creating it the first time. The stamp is written last, so a
# prefix whose creation was interrupted is made anew. No debugger: a crash must end a program, not hang it.
use_prefix() {
    export WINEPREFIX=$build/${1:?a name for the prefix} WINEARCH=win64 WINEDEBUG=-all
    export WINEDLLOVERRIDES="mscoree,mshtml=;winedbg.exe=d;winemenubuilder.exe=d"
    export WINEPATH
    WINEPATH=$(windows_path "$build/win64/bin")
    [ -f "$WINEPREFIX/ready" ] || make_prefix "$1"
    [ -f "$WINEPREFIX/looks-ready" ] || give_looks
}

make_prefix() {
    local server
    say "Creating the Wine prefix build/$1"
    # Debian's Wine names there the temporary folder of the prefix's server, and leaves it behind.
    server=$(cat "$WINEPREFIX/wineserver" 2>/dev/null)
    [[ $server != wine-* ]] || rm -rf "${TMPDIR:-/tmp}/$server"
    rm -rf "$WINEPREFIX"
    mkdir -p "$WINEPREFIX" "$logs"
    {
        timeout 120 wine wineboot -i &&
            # Without a window manager, destroying a managed top-level window waits two seconds.
            timeout 60 wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f
    } > "$logs/prefix.log" 2>&1 || die "The Wine prefix could not be created; see $logs/prefix.log"
    touch "$WINEPREFIX/ready"
}

# Gives the prefix the fonts of Windows' own windows, which Wine does not find where Debian keeps them, and links
# them to one with the Japanese and Chinese letters that they lack. Without the first, Wine would draw everything
# with the second, which has no Latin ones. Then the prefix gets what else makes its windows look like those that
# people have before them: the message font and its smoothing, colours, and the measures of frames.
give_looks() {
    local font target=$WINEPREFIX/drive_c/windows/Fonts
    local key='HKLM\Software\Microsoft\Windows NT\CurrentVersion\FontLink\SystemLink'
    say "Giving the Wine prefix its fonts and colours"
    mkdir -p "$target"
    (
        cp /usr/share/wine/fonts/{marlett,tahoma,tahomabd}.ttf \
            /usr/share/fonts/truetype/droid/DroidSansFallbackFull.ttf "$target/" &&
            for font in 'Tahoma' 'Tahoma Bold' 'Microsoft Sans Serif' 'MS Sans Serif' 'Segoe UI' 'Open Sans'; do
                timeout 60 wine reg add "$key" /v "$font" /t REG_MULTI_SZ \
                    /d 'DroidSansFallbackFull.ttf,Droid Sans Fallback' /f || exit 1
            done && import_look shell && import_look light && WINEDEBUG=-all timeout 30 "$(wineserver_path)" -k -w
    ) > "$logs/looks.log" 2>&1 || die "The prefix could not be given its looks; see $logs/looks.log"
    touch "$WINEPREFIX/looks-ready"
}

# Puts what a registry file of cmake/looks says into the prefix. It shows once the prefix's programs have all ended.
import_look() {
    timeout 60 wine regedit /S "$(windows_path "$root/cmake/looks/$1.reg")"
}

# Gives the prefix the colours of a scheme (light, dark or contrast) and a screen of so many dots per inch, and ends
# what runs there.
set_look() {
    local scheme=$1 dpi=$2
    {
        import_look "$scheme" &&
            timeout 60 wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$dpi" /f &&
            WINEDEBUG=-all timeout 30 "$(wineserver_path)" -k -w
    } > "$logs/look.log" 2>&1 || die "The prefix could not be given its looks; see $logs/look.log"
}

# The path as a Windows program sees it.
windows_path() {
    local path=Z:$1
    printf '%s' "${path//\//\\}"
}

# Registers the two automation libraries in the prefix, again only after a build changed one of them.
register_products() {
    local name library stamp
    for name in Norvex Pellmark; do
        library=$build/win64/bin/$name.dll
        stamp=$WINEPREFIX/registered-$name
        [ -f "$library" ] || continue
        [ "$stamp" -nt "$library" ] && continue
        timeout 60 wine regsvr32 /s "$(windows_path "$library")" > "$logs/register-$name.log" 2>&1 ||
            die "Registering $name.dll failed; see $logs/register-$name.log"
        touch "$stamp"
    done
}
