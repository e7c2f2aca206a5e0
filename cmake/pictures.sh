# The pictures of every view and dialog as different screens show them. Sourced by `run`.
# shellcheck shell=bash

# Every screen is a line of scheme, dots per inch and size.
#
# What a scheme changes is colours, and what resolution and size change is places: so the light scheme is taken on
# all screens, the others on the smallest and on the finest. A scheme, resolution or size asked for by name is taken
# in all combinations with what was left open.
screens() {
    local scheme=$1 dpi=$2 size=$3 each_scheme each_dpi each_size
    for each_scheme in ${scheme:-light dark contrast}; do
        for each_dpi in ${dpi:-96 144 192}; do
            for each_size in ${size:-640x480 3840x2160}; do
                if [ -z "$scheme$dpi$size" ] && [ "$each_scheme" != light ]; then
                    case $each_dpi-$each_size in
                        96-640x480 | 192-3840x2160) ;;
                        *) continue ;;
                    esac
                fi
                printf '%s %s %s\n' "$each_scheme" "$each_dpi" "$each_size"
            done
        done
    done
}

# Takes the pictures on one screen into their own folder.
take_pictures() {
    local folder=$1 scheme=$2 dpi=$3 size=$4 language=$5
    say "Pictures in the scheme $scheme at $dpi dpi and $size"
    start_display "${size}x24"
    set_look "$scheme" "$dpi"
    /usr/bin/python3 "$root/tests/e2e/screenshots.py" "$folder/$scheme-$dpi-$size/" "$language" --fill
    WINEDEBUG=-all timeout 30 "$(wineserver_path)" -k -w
    end_display
}

# One sheet per scheme with all its pictures made small, a column per screen.
make_sheets() {
    local folder=$1 scheme columns name names path paths
    for scheme in $(ls "$folder" | sed -n 's/^\([a-z]*\)-[0-9]*-[0-9]*x[0-9]*$/\1/p' | sort -u); do
        columns=$(ls -d "$folder/$scheme"-*-*x* | wc -l)
        names=$(cd "$folder" && ls "$scheme"-*-*x* | sed -n 's/^[0-9][0-9]-\(.*\)\.png$/\1/p' | sort -u)
        paths=()
        for name in $names; do
            for path in "$folder/$scheme"-*-*x*; do
                path=$(ls "$path"/[0-9][0-9]-"$name".png 2>/dev/null)
                paths+=(-label "$(basename "$(dirname "${path:-/none/none}")") $name" "${path:-null:}")
            done
        done
        [ "$columns" -ge 3 ] || columns=4 # a single column would be too high to be looked at
        montage "${paths[@]}" -tile "${columns}x" -geometry '560x420>+6+6' "$folder/$scheme.png" ||
            die "The sheet of the scheme $scheme could not be made."
        say "$folder/$scheme.png"
    done
}

# All of it: pictures FOLDER LANGUAGE SCHEME DPI SIZE, of which the last three may be empty.
take_all_pictures() {
    local folder=$1 language=$2 scheme dpi size
    mkdir -p "$folder"
    while read -r scheme dpi size <&3; do
        take_pictures "$folder" "$scheme" "$dpi" "$size" "$language"
    done 3< <(screens "$3" "$4" "$5")
    make_sheets "$folder"
}
