#!/usr/bin/env bash
# Every source file is as .clang-format has it, read by one version of clang-format: others differ.
# "clang-format-19 -i FILE" puts it right.
cd "$1" || exit 2
find src platform switcher harness tests tools bench -name '*.cpp' -o -name '*.h' | xargs clang-format-19 --dry-run --Werror
