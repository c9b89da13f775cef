#include "forms/text_conversion.h"

#include "platform/names.h"

#include <algorithm>

namespace tarvix::forms {

QString ToQt(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string ToUtf8(const QString& text) {
    return text.toStdString();
}

QString Shown(std::string_view driveText) {

    QString text = ToQt(platform::ForDisplay(driveText));
    return text.contains(u'\r') ? text.replace("\r\n", "\n") : text;
}

QString WithThousands(const QString& digits) {
    const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
    if (!std::ranges::all_of(digits, isDigit)) return digits;
    QString result = digits;
    for (qsizetype at = result.size() - 3; at > 0; at -= 3) {
        result.insert(at, u',');
    }
    return result;
}

QString WithoutLeadingZeros(const QString& number) {
    const auto isPart = [](QChar c) { return c == u',' || (c >= u'0' && c <= u'9'); };
    qsizetype start = 0;
    while (start + 1 < number.size() && (number[start] == u'0' || number[start] == u',') &&
           isPart(number[start + 1])) {
        ++start;
    }
    return number.mid(start);
}

QString TipText(const QString& text) {
    return text.isEmpty() ? QString()
                          : "<span>" + text.toHtmlEscaped().replace(u'\n', "<br>") + "</span>";
}

QString PlainCaption(std::string_view caption) {
    return ToQt(caption).remove(u'&');
}

} // namespace tarvix::forms
