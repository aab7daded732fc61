#include "krt/encoding.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace krt {

namespace {

using Words = std::array<std::uint32_t, 64>;

/// The first 32 bits behind the point of the roots of the first primes.
template <std::size_t Count>
std::array<std::uint32_t, Count> roots(long double (*root)(long double)) {
    std::array<std::uint32_t, Count> bits{};
    std::size_t found = 0;
    for (int number = 2; found < Count; ++number) {
        bool prime = true;
        for (int divisor = 2; divisor * divisor <= number; ++divisor)
            prime = prime && number % divisor != 0;
        if (!prime)
            continue;
        auto const value = root(static_cast<long double>(number));
        bits[found++] = static_cast<std::uint32_t>((value - std::floor(value)) * 4294967296.0L);
    }
    return bits;
}

Words expanded(std::string_view block) {
    Words words{};
    for (std::size_t i = 0; i < 64; ++i)
        words[i / 4] = words[i / 4] << 8 | static_cast<std::uint8_t>(block[i]);
    for (std::size_t i = 16; i < 64; ++i) {
        auto const before = words[i - 15];
        auto const last = words[i - 2];
        words[i] = words[i - 16] + words[i - 7] +
                   (std::rotr(before, 7) ^ std::rotr(before, 18) ^ before >> 3) +
                   (std::rotr(last, 17) ^ std::rotr(last, 19) ^ last >> 10);
    }
    return words;
}

void mix(std::array<std::uint32_t, 8>& state, std::string_view block) {
    static auto const constants = roots<64>(std::cbrt);
    auto const words = expanded(block);
    auto [a, b, c, d, e, f, g, h] = state;
    for (std::size_t i = 0; i < 64; ++i) {
        auto const one = h + (std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25)) +
                         ((e & f) ^ (~e & g)) + constants[i] + words[i];
        auto const two =
            (std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22)) + ((a & b) ^ (a & c) ^ (b & c));
        h = g;
        g = f;
        f = e;
        e = d + one;
        d = c;
        c = b;
        b = a;
        a = one + two;
    }
    std::size_t i = 0;
    for (auto const word : {a, b, c, d, e, f, g, h})
        state[i++] += word;
}

} // namespace

void append_base64(std::string& to, std::string_view bytes) {
    constexpr std::string_view letters =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    for (; !bytes.empty(); bytes.remove_prefix(std::min<std::size_t>(3, bytes.size()))) {
        std::uint32_t three = 0;
        for (std::size_t i = 0; i < 3; ++i)
            three = three << 8 | (i < bytes.size() ? static_cast<std::uint8_t>(bytes[i]) : 0U);
        for (std::size_t i = 0; i < 4; ++i)
            to += i <= bytes.size() ? letters[three >> (18 - 6 * i) & 63U] : '=';
    }
}

std::array<std::uint8_t, 32> sha256(std::string_view bytes) {
    auto state = roots<8>(std::sqrt);
    std::string end(bytes.substr(bytes.size() / 64 * 64));
    end += '\x80';
    end.resize((end.size() + 8 + 63) / 64 * 64 - 8);
    for (int shift = 56; shift >= 0; shift -= 8)
        end += static_cast<char>(static_cast<std::uint64_t>(bytes.size()) * 8 >> shift);
    for (std::size_t at = 0; at + 64 <= bytes.size(); at += 64)
        mix(state, bytes.substr(at, 64));
    for (std::size_t at = 0; at < end.size(); at += 64)
        mix(state, std::string_view(end).substr(at, 64));
    std::array<std::uint8_t, 32> hash{};
    for (std::size_t i = 0; i < hash.size(); ++i)
        hash[i] = static_cast<std::uint8_t>(state[i / 4] >> (24 - 8 * (i % 4)));
    return hash;
}

} // namespace krt
