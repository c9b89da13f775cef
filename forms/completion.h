#pragma once

class QComboBox;

namespace tarvix::forms {

// Offers the entries of the list that hold what is typed. Enter with none of them chosen acts as if
// nothing had been offered.
void OfferCompletion(QComboBox& box);

} // namespace tarvix::forms
