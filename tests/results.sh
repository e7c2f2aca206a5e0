# Reads what a suite printed, one result per line: those of the unit-test library, and "ok TITLE", "not ok TITLE" and
# "skip TITLE: REASON" of everything else. Sourced by `test`.
# shellcheck shell=bash

# Which tests may leave themselves out, and why: suite, test pattern, reason.
allowed_skips=$(dirname "${BASH_SOURCE[0]}")/wine-exclusions.txt

# How many tests a log says have passed and failed.
passed_in() { tr -d '\r' < "$1" | grep -cE '^(\[       OK \] |ok )'; }
failed_in() { tr -d '\r' < "$1" | grep -cE '^(\[  FAILED  \] .*\([0-9]+ ms\)$|not ok )'; }

# The tests of a log that left themselves out, a line "NAME: REASON" for each.
skips_in() {
    tr -d '\r' < "$1" | awk '
        /^\[ RUN      \] / { reason = ""; next }
        /^\[  SKIPPED \] .*\([0-9]+ ms\)$/ {
            sub(/^\[  SKIPPED \] /, ""); sub(/ \([0-9]+ ms\)$/, "")
            print $0 ": " (reason == "" ? "no reason given" : reason)
            next
        }
        /^skip / { sub(/^skip /, ""); print; next }
        /: Skipped$/ || /^$/ { next }
        { reason = reason == "" ? $0 : reason " " $0 }'
}

# Whether the test, "NAME: REASON", may leave itself out in the suite.
skip_is_allowed() {
    local suite=$1 name=${2%%: *} allowed pattern reason
    while read -r allowed pattern reason; do
        # the patterns stay unquoted to be matched as such
        # shellcheck disable=SC2053
        [[ $allowed != \#* && -n $reason && $suite == $allowed && $name == $pattern ]] && return 0
    done < "$allowed_skips"
    return 1
}

# The last line of a run.
summary() {
    local passed=$1 failed=$2 skipped=$3
    printf '%d passed, %d failed' "$passed" "$failed"
    [ "$skipped" = 0 ] || printf ', %d skipped' "$skipped"
    printf '\n'
}
