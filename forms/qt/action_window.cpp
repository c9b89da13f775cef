#include "forms/qt/action_window.h"

#include "forms/qt/drop_filter.h"
#include "forms/qt/field_widgets.h"
#include "forms/qt/native_input.h"
#include "forms/qt/panel_parts.h"
#include "forms/qt/text_conversion.h"
#include "session/session.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tarvix::qt {

namespace {

// A choice of several, with its word in front; nothing is shown of a choice of one.
QWidget* MakeChoice(const QString& word, const forms::OptionGroup& group) {
    QList<QWidget*> parts{new QLabel(word)};
    for (int i = 0; i < group.Count(); ++i) {
        parts << Make(group[i]);
    }
    QWidget* row = InRow(parts, 10);
    row->setVisible(group.Count() > 1);
    return row;
}

} // namespace

ActionWindow::ActionWindow(session::Session& session, EventGate& gate, QWidget* parent)
    : ModalWindow(session, gate, session.frmDialog, parent) {
    auto* column = new QVBoxLayout(this);
    column->setSpacing(10);
    QLabel* heading = Make(session.frmDialog.lblMain);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    sentence_ = new QLabel;
    sentence_->setObjectName("lblSentence");
    sentence_->setTextFormat(Qt::PlainText);
    sentence_->setWordWrap(true);
    column->addWidget(heading);
    column->addWidget(MakeDestination());
    column->addWidget(MakeChoices());
    column->addWidget(sentence_);
    column->addStretch(1);
    column->addWidget(MakeProgress());
    column->addWidget(MakeButtons());
    setMinimumWidth(fontMetrics().averageCharWidth() * 90);
    BindFields();
    findChild<QComboBox*>("cmbDir")->setFocus();
}

QWidget* ActionWindow::MakeDestination() {
    const auto& form = session_.frmDialog;
    QComboBox* box = Make(form.cmbDir);
    box->setAccessibleName("Destination");
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    box->lineEdit()->setPlaceholderText("A folder, as C:\\home\\ann\\Music or /home/ann/Music");
    AcceptDrops(*box, [this](const QList<QUrl>& urls) {
        const auto dropped = DroppedLocations(session_.platform, urls.mid(0, 1));
        if (!dropped.empty()) binder_->Set(session_.frmDialog.cmbDir, ToQt(dropped));
    });
    return InRow({box, Make(form.cmdBrowse)});
}

QWidget* ActionWindow::MakeChoices() {
    const auto& form = session_.frmDialog;
    auto* panel = new QWidget;
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    column->addWidget(MakeChoice("Where", form.optTo));
    column->addWidget(MakeChoice("Folder structure", form.optStructure));
    column->addWidget(Make(form.chkSkipAll));
    return panel;
}

QWidget* ActionWindow::MakeProgress() {
    const auto& form = session_.frmDialog;
    auto* panel = new QWidget;
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    bytes_ = Make(form.prgBytes);
    bytes_->setAccessibleName("Progress in bytes");
    QSizePolicy keeps = bytes_->sizePolicy();
    keeps.setRetainSizeWhenHidden(true);
    bytes_->setSizePolicy(keeps);
    QWidget* line = InRow({Make(form.lblBusy), MakeElided(form.lblStatus)});
    line->layout()->setAlignment(Qt::AlignLeft);
    column->addWidget(line);
    column->addWidget(bytes_);
    return panel;
}

QWidget* ActionWindow::MakeButtons() {
    const auto& form = session_.frmDialog;
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    QPushButton* stop = Make(form.cmdStop);
    stop->setIcon(QIcon::fromTheme("process-stop"));
    QPushButton* ok = Make(form.OKButton);
    ok->setDefault(true);
    layout->addWidget(stop);
    layout->addStretch(1);
    layout->addWidget(ok);
    layout->addWidget(Make(form.CancelButton));
    return row;
}

QString ActionWindow::Sentence() const {
    const auto& form = session_.frmDialog;
    QString result = PlainCaption(form.OKButton.Caption.Get());
    result += form.cmbDir.Text->empty() ? " into the folder above"
                                        : " into " + Shown(form.cmbDir.Text.Get());
    if (form.optStructure.Chosen() == 0) result += ", side by side, without their folders";
    result += form.chkSkipAll.Value == 1 ? ". What is there already is skipped." : ".";
    return result;
}

void ActionWindow::Refresh() {
    sentence_->setText(Sentence());
    bytes_->setVisible(session_.frmDialog.prgBytes.Visible && session_.frmDialog.prgBytes.Max > 0);
}

} // namespace tarvix::qt
