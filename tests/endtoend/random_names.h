#pragma once

#include <cstdlib>
#include <random>
#include <string>
#include <string_view>

namespace tarvix::endtoend {

// Whether the long runs are wanted.
inline bool IsNightly() {
    return std::getenv("TARVIX_NIGHTLY") != nullptr;
}

// Other names in each nightly run, always the same in any other.
inline std::mt19937_64 NamesRandom() {
    return std::mt19937_64(IsNightly() ? std::random_device()() : 11);
}

// Any bytes but "/" and NUL, more often those that mean something somewhere. The number makes sure
// that no two names are equal but for case.
inline std::string RandomName(std::mt19937_64& random, int number) {
    constexpr std::string_view kOften =
        " ..\\:*?\"<>|\n\r\t\x1B\x7F\x80\x81\xBF\xC3\xA4\xE9\xEF\xF0\xFF#[]!~%&-$'";
    const auto piece = [&] {
        std::string text;
        for (std::size_t i = random() % 9; i > 0; --i) {
            const char c =
                random() % 3 != 0 ? kOften[random() % kOften.size()] : static_cast<char>(random());
            if (c != '/' && c != '\0' && c != '_') text += c;
        }
        return text;
    };
    std::string name = piece();
    name.append("_").append(std::to_string(number)).append("_").append(piece());
    if (name.starts_with('.')) name.front() = 'h'; // hidden objects are asked about
    if (random() % 64 == 0) name.resize(255, '\xFE');
    return name;
}

} // namespace tarvix::endtoend
