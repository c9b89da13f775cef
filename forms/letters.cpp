#include "forms/letters.h"

#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <functional>
#include <set>
#include <vector>

namespace tarvix::forms {

namespace {

constexpr std::array kDigits{QChar(u'1'), QChar(u'2'), QChar(u'3'), QChar(u'4'), QChar(u'5'),
                             QChar(u'6'), QChar(u'7'), QChar(u'8'), QChar(u'9'), QChar(u'0')};

struct Caption {
    QString text;
    bool getsOne = true;
    std::function<void(const QString&)> set;
};

// Where the next mark of a letter stands; -1 for none. Two in a row are one character that shows.
qsizetype MarkIn(const QString& text, qsizetype from = 0) {
    for (qsizetype at = text.indexOf(u'&', from); at >= 0 && at + 1 < text.size();
         at = text.indexOf(u'&', at + 2)) {
        if (text[at + 1] != u'&') return at;
    }
    return -1;
}

bool IsLetter(QChar c) {
    return c.unicode() < 128 && c.isLetterOrNumber();
}

// Where a free letter stands: at the beginning of a word if there is one.
qsizetype FreeLetterIn(const QString& text, const std::set<QChar>& taken) {
    const qsizetype tab = text.indexOf(u'\t');
    const qsizetype end = tab < 0 ? text.size() : tab;
    for (const bool beginsWord : {true, false}) {
        for (qsizetype at = 0; at < end; ++at) {
            const bool isFirst = at == 0 || !text[at - 1].isLetterOrNumber();
            const bool fits = isFirst || !beginsWord;
            if (fits && IsLetter(text[at]) && !taken.contains(text[at].toLower())) return at;
        }
    }
    return -1;
}

// Keeps the first mark whose letter is free, and takes it.
QString WithOneMark(QString text, std::set<QChar>& taken) {
    bool hasOne = false;
    for (qsizetype at = MarkIn(text); at >= 0; at = MarkIn(text, at)) {
        if (!hasOne && taken.insert(text[at + 1].toLower()).second) {
            hasOne = true;
            ++at;
        } else {
            text.remove(at, 1);
        }
    }
    return text;
}

void Settle(std::vector<Caption>& captions) {
    std::set<QChar> taken;
    for (Caption& caption : captions) {
        const QString kept = WithOneMark(caption.text, taken);
        if (kept != caption.text) caption.set(caption.text = kept);
    }
    for (Caption& caption : captions) {
        if (!caption.getsOne || MarkIn(caption.text) >= 0) continue;
        const qsizetype at = FreeLetterIn(caption.text, taken);
        if (at < 0) continue;
        taken.insert(caption.text[at].toLower());
        caption.set(caption.text.insert(at, u'&'));
    }
}

template <class Part>
Caption CaptionOf(Part& part, bool getsOne = true) {
    return {part.text(), getsOne, [&part](const QString& text) { part.setText(text); }};
}

} // namespace

void GiveLetters(QMenu& menu) {
    std::vector<Caption> captions;
    for (QAction* entry : menu.actions()) {
        if (entry->isVisible() && !entry->isSeparator()) captions.push_back(CaptionOf(*entry));
    }
    Settle(captions);
}

void GiveLettersAndDigits(QMenu& menu) {
    GiveLetters(menu);
    std::set<QChar> taken;
    for (const QAction* entry : menu.actions()) {
        const qsizetype at = MarkIn(entry->text());
        if (entry->isVisible() && at >= 0) taken.insert(entry->text()[at + 1].toLower());
    }
    for (QAction* entry : menu.actions()) {
        if (!entry->isVisible() || entry->isSeparator() || MarkIn(entry->text()) >= 0) continue;
        const auto digit =
            std::ranges::find_if(kDigits, [&](QChar each) { return !taken.contains(each); });
        if (digit == std::end(kDigits)) return;
        taken.insert(*digit);
        entry->setText(QString("&%1  %2").arg(*digit).arg(entry->text()));
    }
}

void GiveLettersWhenOpened(QMenu& menu) {
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [&menu] { GiveLetters(menu); });
}

void GiveLetters(QWidget& window) {
    std::vector<Caption> captions;
    const auto buttons = window.findChildren<QAbstractButton*>();
    for (const bool isPush : {true, false}) {
        for (QAbstractButton* button : buttons) {
            const bool isOf = (qobject_cast<QPushButton*>(button) != nullptr) == isPush;
            const bool isInner = button->objectName().startsWith("qt_"); // of a calendar
            if (isOf && !isInner && button->isVisibleTo(&window))
                captions.push_back(CaptionOf(*button));
        }
    }
    for (QLabel* label : window.findChildren<QLabel*>()) {
        if (label->buddy() != nullptr && label->isVisibleTo(&window))
            captions.push_back(CaptionOf(*label, false));
    }
    Settle(captions);
}

} // namespace tarvix::forms
