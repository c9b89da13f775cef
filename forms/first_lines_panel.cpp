#include "forms/first_lines_panel.h"

#include "forms/action_sections.h"
#include "generate/first_lines.h"
#include "session/session.h"

#include <QLabel>
#include <QPlainTextEdit>

#include <utility>

namespace tarvix::forms {

namespace {
constexpr int kFirstLinesShown = 8; // without scrolling
}

FirstLinesPanel::FirstLinesPanel(session::Session& session)
    : session_(session), lines_(new QPlainTextEdit),
      similarNote_(new QLabel("Possible duplicates stand below their entries. They are looked for "
                              "when the list is written.")) {
    lines_->setObjectName("txtFirstLines");
    lines_->setReadOnly(true);
    lines_->setLineWrapMode(QPlainTextEdit::NoWrap);
    lines_->setTabChangesFocus(true);
    lines_->setAccessibleName("The first lines that would be written");
    lines_->setFixedHeight(lines_->fontMetrics().lineSpacing() * kFirstLinesShown + 24);
    similarNote_->setObjectName("lblSimilarNote");
    similarNote_->setWordWrap(true);
    FillSection(*this, "First lines", {lines_, similarNote_});
}

void FirstLinesPanel::Follow() {
    std::string key = generate::FirstLinesKey(session_);
    setVisible(!key.empty());
    const auto& similar = session_.frmDialog.chkFindSimilar;
    similarNote_->setVisible(similar.Visible && similar.Value == 1);
    if (key == shown_) return;
    shown_ = std::move(key);
    QStringList lines;
    for (const std::string& line : generate::ListedFirst(session_)) {
        lines << QString::fromUtf8(line);
    }
    lines_->setPlainText(lines.join('\n'));
}

} // namespace tarvix::forms
