#pragma once

class QWidget;

namespace tarvix::fields {
struct DuplicateQuestion;
}

namespace tarvix::forms {

// The question about a duplicate with both objects side by side; where it has a headline, with what
// differs between them and always equally high. The caller owns the panel.
QWidget* MakeDuplicateText(const fields::DuplicateQuestion& parts);

} // namespace tarvix::forms
