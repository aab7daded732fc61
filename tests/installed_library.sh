#!/usr/bin/env bash
# Installs the card library into a folder of its own, builds the example against it in both of the ways
# that other programs have, and runs it: installed_library.sh SOURCES BUILD
set -euo pipefail
sources=$1
build=$2
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT

cmake --install "$build" --prefix "$place/prefix" --component library > "$place/log"

mkdir "$place/user"
cat > "$place/user/CMakeLists.txt" << END
cmake_minimum_required(VERSION 3.25)
project(user LANGUAGES CXX)
find_package(kehystin-card 1.0 REQUIRED)
add_executable(user $sources/examples/use_library.cpp)
target_link_libraries(user PRIVATE kehystin::card)
END
# The flags of the sanitizers go with the library.
flags=$(sed -n 's/^KEHYSTIN_SANITIZE:BOOL=ON$/-fsanitize=address,undefined/p' "$build/CMakeCache.txt")
export CXXFLAGS=$flags LDFLAGS=$flags
cmake -S "$place/user" -B "$place/user/build" -DCMAKE_PREFIX_PATH="$place/prefix" >> "$place/log"
cmake --build "$place/user/build" >> "$place/log"

package=$(dirname "$(find "$place/prefix" -name kehystin-card.pc)")
# shellcheck disable=SC2046
c++ $flags "$sources/examples/use_library.cpp" -o "$place/by_pkg_config" \
  $(PKG_CONFIG_PATH=$package pkg-config --cflags --libs kehystin-card)

for program in "$place/user/build/user" "$place/by_pkg_config"; do
  told=$("$program" "$sources/examples/asiakkaat.krt")
  [ "$told" = "19 links, 0 fields without a title" ] || { echo "$program: $told"; exit 1; }
done
