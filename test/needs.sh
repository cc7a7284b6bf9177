#!/bin/sh
# Runs a test, or leaves it out where it lacks a program.
#
#   needs.sh PROGRAM... -- COMMAND...
set -eu

while [ "$1" != -- ]; do
    command -v "$1" >/dev/null || {
        echo "LEFT OUT: needs $1"
        exit 77
    }
    shift
done
shift
exec "$@"
