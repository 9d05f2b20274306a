#!/usr/bin/env bash
# Runs the wave decoder's fuzzer for $2 seconds (default 20) from seed files
# of every kind the voice reads, made with sox, and prints libFuzzer's
# figures. A crash, a leak, a hang of ten seconds or a gigabyte of memory fails
# the run, prints libFuzzer's report and leaves the input in the folder the
# script was started from.
#   tests/fuzz/run_wave_fuzz.sh build-fuzz/tests/fuzz/nautrix_wave_fuzz 3600
set -euo pipefail
fuzzer=$(realpath "$1")
seconds=${2:-20}
work=$(mktemp -d /tmp/nautrix-wave-fuzz.XXXXXX)
trap 'rm -rf "$work"' EXIT
mkdir "$work/corpus" "$work/seeds"
for kind in "-b 8 -e unsigned" "-b 16 -e signed" "-b 24 -e signed" "-b 32 -e signed" \
  "-b 32 -e float" "-b 64 -e float"; do
  for channels in 1 2 6; do
    for type in wav wavpcm; do
      sox -D -n -r 8000 -c $channels $kind -t $type "$work/seeds/${kind// /}-$channels.$type" \
        synth 0.005 sine 440
    done
  done
done
status=0
"$fuzzer" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=1024 -max_len=4096 \
  -print_final_stats=1 -artifact_prefix="$PWD/" "$work/corpus" "$work/seeds" >"$work/log" 2>&1 ||
  status=$?
if [ $status -eq 0 ]; then
  grep -E '^(Done|stat::|INFO: seed)' "$work/log"
else
  tail -n 60 "$work/log"
fi
exit $status
