# The runs of ./test that are no part of every run: --fuzz, --kill, --faults, --hostile, --soak. Sourced
# by ./test, which has configured $folder; $amount is what was given.
# shellcheck shell=bash disable=SC2154

run_fuzz() {
    local seconds=${amount:-60} found=$folder/found failed=() target corpus log kept
    say "building the fuzzed rules in $(basename "$folder")"
    cmake --build "$folder" --target fuzz
    mkdir -p "$found"
    for target in "$folder"/fuzz_*; do
        target=${target##*/fuzz_}
        corpus=$folder/corpus/$target
        log=$found/$target.log
        mkdir -p "$corpus"
        mapfile -t kept < <(kept_inputs "$target")
        nice -n 19 "$folder/fuzz_$target" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=4096 \
            -artifact_prefix="$found/$target-" "$corpus" "${kept[@]}" >"$log" 2>&1 ||
            failed+=("$target")
        say "$target: $(sed -nE 's/^Done ([0-9]+) runs in ([0-9]+) second.*/\1 executions in \2 s/p' "$log")"
    done
    if ((${#failed[@]} > 0)); then
        fail "found something in ${failed[*]}: see $found"
    fi
}

kept_inputs() {
    find "$root/tests/fuzz/corpus/$1" "$root/tests/fuzz/regressions/$1" -maxdepth 0 2>/dev/null || true
}

# A round of editing is the whole program on a desktop: three for ten kills, never fewer than in ./test.
run_kill() {
    local kills=${amount:-1000} rounds
    rounds=$((kills * 3 / 10))
    rounds=$((rounds > 30 ? rounds : 30))
    cmake --build "$folder" --target kill_writers e2e_editing_kill orvanta
    say "killing $kills times"
    nice -n 19 "$folder/kill_writers" "$kills"
    say "killing the program $rounds times while a lesson is edited"
    ORVANTA_EDITING_KILLS=$rounds nice -n 19 "$folder/e2e_editing_kill"
}

# Nothing is refused to root: the faults would be fewer.
run_faults() {
    local user=()
    cmake --build "$folder" --target fault_writers fault_shim
    if [[ $(id -u) == 0 ]]; then
        user=(setpriv --reuid=65534 --regid=65534 --clear-groups)
    fi
    say 'letting what writes fail'
    (cd / && nice -n 19 "${user[@]}" "$folder/fault_writers")
}

run_hostile() {
    cmake --build "$folder" --target orvanta
    "$root/scripts/hostile_media"
}

run_soak() {
    cmake --build "$folder" --target orvanta
    "$root/scripts/soak" "${amount:-25}"
}
