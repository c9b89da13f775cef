#include "text/format.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace tarvix::text {

namespace {

bool IsPlace(char c) {
    return c == '0' || c == '#';
}

struct Shape {
    std::size_t wholePlaces = 0;
    std::size_t wholeForced = 0; // places from the first "0" to the point
    std::size_t fractionPlaces = 0;
    std::size_t fractionForced = 0; // places from the point to the last "0"
    bool thousands = false;
};

Shape ReadShape(std::string_view picture) {
    Shape shape;
    const std::size_t point = std::min(picture.find('.'), picture.size());
    bool commaBehindPlace = false;
    for (const char c : picture.substr(0, point)) {
        if (c == ',') commaBehindPlace = shape.wholePlaces > 0;
        if (!IsPlace(c)) continue;
        shape.thousands = shape.thousands || commaBehindPlace;
        ++shape.wholePlaces;
        if (c == '0' || shape.wholeForced > 0) ++shape.wholeForced;
    }
    for (const char c : picture.substr(point)) {
        if (!IsPlace(c)) continue;
        ++shape.fractionPlaces;
        if (c == '0') shape.fractionForced = shape.fractionPlaces;
    }
    return shape;
}

// A number as decimal digits, without leading zeros in `whole` and trailing ones in `fraction`.
struct Digits {
    bool negative = false;
    std::string whole;
    std::string fraction;
};

// Adds one unit in the last place.
void RoundUp(Digits& digits) {
    for (std::string* part : {&digits.fraction, &digits.whole}) {
        for (auto digit = part->rbegin(); digit != part->rend(); ++digit) {
            if (*digit != '9') {
                ++*digit;
                return;
            }
            *digit = '0';
        }
    }
    digits.whole.insert(0, 1, '1');
}

void RoundTo(Digits& digits, std::size_t places) {
    if (digits.fraction.size() > places) {
        const bool up = digits.fraction[places] >= '5';
        digits.fraction.resize(places);
        if (up) RoundUp(digits);
    }
    digits.fraction.resize(digits.fraction.find_last_not_of('0') + 1);
    digits.whole.erase(0, std::min(digits.whole.find_first_not_of('0'), digits.whole.size()));
    if (digits.whole.empty() && digits.fraction.empty()) digits.negative = false;
}

Digits DigitsOf(double value, std::size_t places) {
    std::array<char, 400> buffer;
    const auto end =
        std::to_chars(buffer.begin(), buffer.end(), std::fabs(value), std::chars_format::fixed).ptr;
    const std::string_view all(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
    const std::size_t point = std::min(all.find('.'), all.size());
    Digits digits{value < 0, std::string(all.substr(0, point)), {}};
    if (point < all.size()) digits.fraction = all.substr(point + 1);
    RoundTo(digits, places);
    return digits;
}

Digits DigitsOf(std::int64_t value) {
    const auto bits = static_cast<std::uint64_t>(value);
    Digits digits{value < 0, fmt::format("{}", value < 0 ? 0 - bits : bits), {}};
    RoundTo(digits, 0);
    return digits;
}

class Printer {
  public:
    Printer(const Digits& digits, const Shape& shape) : digits_(digits), shape_(shape) {
        width_ = std::max(digits.whole.size(), shape.wholeForced);
        if (digits.negative) out_ += '-';
    }

    std::string Print(std::string_view picture) {
        for (const char c : picture) {
            if (c == '.' && !behindPoint_) {
                Point();
            } else if (IsPlace(c)) {
                behindPoint_ ? FractionPlace() : WholePlace();
            } else if (c != ',') {
                out_ += c;
            }
        }
        return std::move(out_);
    }

  private:
    void Point() {
        if (shape_.wholePlaces == 0) WholeDigitsDownTo(0);
        out_ += '.';
        behindPoint_ = true;
    }

    void WholePlace() {
        const std::size_t position = shape_.wholePlaces - ++wholeDone_;
        if (wholeDone_ == 1) {
            WholeDigitsDownTo(position);
        } else if (position < width_) {
            WholeDigit(position);
        }
    }

    void WholeDigitsDownTo(std::size_t position) {
        for (std::size_t at = width_; at > position; --at) {
            WholeDigit(at - 1);
        }
    }

    // `position` counts from the right, from 0.
    void WholeDigit(std::size_t position) {
        const std::size_t count = digits_.whole.size();
        out_ += position < count ? digits_.whole[count - 1 - position] : '0';
        if (shape_.thousands && position > 0 && position % 3 == 0) out_ += ',';
    }

    void FractionPlace() {
        const std::size_t place = fractionDone_++;
        if (place < digits_.fraction.size()) {
            out_ += digits_.fraction[place];
        } else if (place < shape_.fractionForced) {
            out_ += '0';
        }
    }

    const Digits& digits_;
    const Shape& shape_;
    std::size_t width_ = 0;
    std::size_t wholeDone_ = 0;
    std::size_t fractionDone_ = 0;
    bool behindPoint_ = false;
    std::string out_;
};

enum class Part { None, Year, Month, Day, Hour, Minute, Second };

struct PartLetter {
    char letter;
    Part part;
    std::size_t longest;
};

constexpr std::array<PartLetter, 6> kPartLetters = {{{'y', Part::Year, 4},
                                                     {'m', Part::Month, 2},
                                                     {'d', Part::Day, 2},
                                                     {'h', Part::Hour, 2},
                                                     {'n', Part::Minute, 2},
                                                     {'s', Part::Second, 2}}};
constexpr std::string_view kHalves = "am/pm";

char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

bool StartsWithHalves(std::string_view picture) {
    return std::ranges::equal(picture.substr(0, kHalves.size()), kHalves, {}, LowerAscii);
}

bool ContainsHalves(std::string_view picture) {
    return !std::ranges::search(picture, kHalves, {}, LowerAscii).empty();
}

// How many times the letter stands at the front of the picture.
std::size_t LetterCount(std::string_view picture, const PartLetter& letter) {
    std::size_t count = 0;
    while (count < std::min(picture.size(), letter.longest) &&
           LowerAscii(picture[count]) == letter.letter) {
        ++count;
    }
    return count;
}

int ValueOf(const DateTime& value, Part part, bool halves) {
    switch (part) {
    case Part::Year:
        return value.year;
    case Part::Month:
        return value.month;
    case Part::Day:
        return value.day;
    case Part::Hour:
        return halves ? (value.hour + 11) % 12 + 1 : value.hour;
    case Part::Minute:
        return value.minute;
    case Part::Second:
        return value.second;
    case Part::None:
        break;
    }
    return 0;
}

void AppendPadded(std::string& out, int value, std::size_t width) {
    const fmt::format_int digits(value);
    if (digits.size() < width) out.append(width - digits.size(), '0');
    out.append(digits.data(), digits.size());
}

void AppendPart(std::string& out, Part part, std::size_t letters, int value) {
    if (part != Part::Year) {
        AppendPadded(out, value, letters);
    } else if (letters > 2) {
        AppendPadded(out, value, 4);
    } else {
        AppendPadded(out, value % 100, 2);
    }
}

} // namespace

std::string Format(double value, std::string_view picture) {
    if (picture.empty() || !std::isfinite(value)) return fmt::format("{}", value);
    const Shape shape = ReadShape(picture);
    const Digits digits = DigitsOf(value, shape.fractionPlaces);
    return Printer(digits, shape).Print(picture);
}

std::string FormatWhole(std::int64_t value, std::string_view picture) {
    if (picture.empty()) return fmt::format("{}", value);
    const Shape shape = ReadShape(picture);
    const Digits digits = DigitsOf(value);
    return Printer(digits, shape).Print(picture);
}

std::string FormatDate(const DateTime& value, std::string_view picture) {
    const bool halves = ContainsHalves(picture);
    std::string out;
    Part last = Part::None;
    while (!picture.empty()) {
        const auto found =
            std::ranges::find(kPartLetters, LowerAscii(picture.front()), &PartLetter::letter);
        std::size_t count = 1;
        if (StartsWithHalves(picture)) {
            out += value.hour < 12 ? "AM" : "PM";
            count = kHalves.size();
        } else if (found == kPartLetters.end()) {
            out += picture.front();
        } else {
            count = LetterCount(picture, *found);
            last = found->part == Part::Month && last == Part::Hour ? Part::Minute : found->part;
            AppendPart(out, last, count, ValueOf(value, last, halves));
        }
        picture.remove_prefix(count);
    }
    return out;
}

} // namespace tarvix::text
