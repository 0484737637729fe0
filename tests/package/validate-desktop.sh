#!/usr/bin/env bash
# Runs the freedesktop validators over the desktop entry and the metainfo.
# Exit 77 (skipped) when a validator is not installed.
set -euo pipefail
desktop=$1
metainfo=$2
for tool in desktop-file-validate appstreamcli; do
    command -v "$tool" >/dev/null || { echo "no $tool: skipped"; exit 77; }
done
status=0
# desktop-file-validate exits 0 on hints and warnings too; any line it prints is a finding.
out=$(desktop-file-validate "$desktop" 2>&1) || status=1
[ -z "$out" ] || { echo "$out"; status=1; }
appstreamcli validate --no-net "$metainfo" || status=1
exit $status
