#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Pages to text on the same 200 files: html_bench.sh PROGRAM DECODER ROUNDS WORKDIR, where PROGRAM is
# omni-perch-bench-html, which hands the pages to DECODER and counts from that process's start. The others are measured
# as whole processes. A line of milliseconds a round: "html=", "html_w3m=" and "html_chromium=". By turns; the first
# round only warms the page cache, for all alike. Every program writes all texts to a file.
set -euo pipefail
program=$1
decoder=$2
rounds=$3
work=$4
pages=$(cd "$(dirname "$0")/../../tests/platform/html/pages" && pwd)
count=200

mkdir -p "$work/pages"
sources=("$pages"/*.html)
for number in $(seq -w 0 $((count - 1))); do
  cp "${sources[$((10#$number % ${#sources[@]}))]}" "$work/pages/$number.html"
done

# A page that does in Chromium what is measured: it puts each source into the body of a fresh document, and takes its
# text.
{
  cat <<'HEAD'
<!DOCTYPE html>
<meta charset="utf-8">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'; script-src 'nonce-own'">
<body><script nonce="own">
const pages = [
HEAD
  for page in "$work/pages"/*.html; do
    printf '"%s",\n' "$(base64 -w 0 "$page")"
  done
  cat <<'TAIL'
];
const frame = document.createElement('iframe');
document.body.append(frame);
const texts = [];
for (const page of pages) {
  const source = new TextDecoder().decode(Uint8Array.from(atob(page), (one) => one.charCodeAt(0)));
  frame.contentDocument.body.innerHTML = source;
  texts.push(frame.contentDocument.body.innerText);
}
document.body.textContent = texts.join('\n') + '\npages=' + texts.length;
</script>
TAIL
} >"$work/wrapper.html"

own() { "$program" "$decoder" "$work/own.txt" "$work/pages"/*.html; }
w3m_peer() { w3m -dump -T text/html "$work/pages"/*.html >"$work/w3m.txt"; }
chromium_peer() {
  rm -rf "$work/profile"
  chromium --headless --no-sandbox --disable-gpu --disable-quic --no-first-run --disable-background-networking \
    --disable-component-update --disable-sync --host-resolver-rules='MAP * ~NOTFOUND' --user-data-dir="$work/profile" \
    --dump-dom "file://$work/wrapper.html" >"$work/chromium.txt" 2>"$work/chromium.log"
  grep -q "pages=$count" "$work/chromium.txt"
}

time_of() { # command; the milliseconds come in $elapsed, no other process is started for the clock
  local before=${EPOCHREALTIME//[!0-9]/}
  "$@"
  local us=$((${EPOCHREALTIME//[!0-9]/} - before))
  printf -v elapsed '%d.%02d' $((us / 1000)) $((us % 1000 / 10))
}

for round in $(seq 0 "$rounds"); do
  html=$(own)
  time_of w3m_peer
  w3m=$elapsed
  time_of chromium_peer
  chromium=$elapsed
  [ "$round" -eq 0 ] || echo "$html html_w3m=$w3m html_chromium=$chromium"
done
