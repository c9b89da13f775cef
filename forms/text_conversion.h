#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace tarvix::forms {

// UTF-8 to Qt and back, nothing changed; for texts that a user edits.
QString ToQt(std::string_view utf8);
std::string ToUtf8(const QString& text);

// A name, path or sentence as people read it: characters that drive paths carry elsewhere stand as
// themselves.
QString Shown(std::string_view driveText);

// "1204" as "1,204"; a text that is not all digits comes back unchanged.
QString WithThousands(const QString& digits);
// "000,000,001,204" as "1,204" and "000" as "0"; what follows the number stays.
QString WithoutLeadingZeros(const QString& number);

// A tip that shows the text as it stands, tags and line breaks and all, in several lines where it
// is long.
QString TipText(const QString& text);

// A caption without its mnemonic mark.
QString PlainCaption(std::string_view caption);

} // namespace tarvix::forms
