#pragma once

#include "fields/controls.h"
#include "results/list_looks.h"

#include <QColor>
#include <QIcon>
#include <QString>

#include <vector>

class QPalette;

namespace tarvix::forms {

// A colour of the list as a readable tint of the palette, apart from every other one.
QColor ListTint(fields::Color color, const QPalette& palette);

// The colour of what was cut or is gone: it stands back, and can be read.
QColor StandingBack(const QPalette& palette);

// What stands in front of a name beside its colour: an icon or, where it has none, a character.
struct SignLook {
    QIcon icon;
    QString character;
};
SignLook LookOf(results::RowSign sign);

// What a colour or a sign in the list means.
struct LegendEntry {
    results::RowSign sign = results::RowSign::kNone;
    int pattern = 0; // the number that stands beside the sign; 0 for none
    fields::Color color = fields::kBlack;
    QString sample;
    QString meaning;
};
std::vector<LegendEntry> LegendOfList();

} // namespace tarvix::forms
