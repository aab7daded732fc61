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

# Each header stands by itself, and the rest of the interface serves in a shared library too.
sed 's/^ *//' > "$place/rest.cpp" << END
  struct base {}; // outside its own namespace every name is the user's
  $(cd "$place/prefix/include/kehystin" && find . -name '*.h' -printf '#include "%P"\n')
  bool rest_of_interface(kehystin::CardData& card) {
    auto const before = card;
    kehystin::order_columns(card, std::array{1});
    return kehystin::write_card(card).size() > kehystin::card_members().size() &&
           kehystin::is_another_card(before, card);
  }
END
# shellcheck disable=SC2046
PKG_CONFIG_PATH=$package c++ $flags -shared -fPIC "$place/rest.cpp" -o "$place/rest.so" -Wl,--no-undefined \
  $(PKG_CONFIG_PATH=$package pkg-config --cflags --libs kehystin-card)
for header in $(sed -n 's/^#include "\(.*\)"$/\1/p' "$place/rest.cpp"); do
  echo "#include \"$header\"" | c++ -std=c++20 -fsyntax-only -x c++ -I "$place/prefix/include/kehystin" -
done

for program in "$place/user/build/user" "$place/by_pkg_config"; do
  told=$("$program" "$sources/examples/asiakkaat.krt")
  [ "$told" = "19 links, 0 fields without a title" ] || { echo "$program: $told"; exit 1; }
done
