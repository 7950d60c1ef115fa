#!/usr/bin/env bash
# Every source file is as .clang-format has it; "clang-format -i FILE" puts it right.
cd "$1" || exit 2
find src platform switcher harness tests tools bench -name '*.cpp' -o -name '*.h' | xargs clang-format --dry-run --Werror
