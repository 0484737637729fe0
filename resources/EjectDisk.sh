#!/bin/sh
# Ejects the disk mounted at $1. Tries the desktop's own way first (gio, which also tells the
# file manager), then udisks, then a plain umount; the code of the last attempt is the result.
# Only gio, udisksctl, findmnt and umount are run; everything else is a shell builtin.

if [ $# -lt 1 ] || [ -z "$1" ]; then
    echo "usage: EjectDisk.sh MOUNT-PATH" >&2
    exit 2
fi
path=$1

if command -v gio >/dev/null 2>&1; then
    gio mount -e "$path" && exit 0
fi

if command -v udisksctl >/dev/null 2>&1; then
    dev=$(findmnt -n -o SOURCE --mountpoint "$path")
    if [ -n "$dev" ] && udisksctl unmount -b "$dev" --no-user-interaction; then
        # Once unmounted the card is safe to pull, even if the reader cannot be powered off.
        udisksctl power-off -b "$dev" --no-user-interaction
        exit 0
    fi
fi

umount "$path"
