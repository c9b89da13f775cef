#pragma once

#include "forms/field_widgets.h"

namespace tarvix::forms {

// A box that says whether objects with an attribute are found: none of them (a cross), only they (a
// tick), or any (a dash). A click goes from none to any to only.
class AttributeBox : public FieldCheckBox {
  public:
    // `meaning` is what has the attribute: "Hidden objects".
    AttributeBox(const fields::CheckBox& field, QString meaning);

    // The value of the field behind the next click.
    QString Next() const;

  private:
    void TellState();
    QString meaning_;
};

} // namespace tarvix::forms
