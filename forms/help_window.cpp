#include "forms/help_window.h"

#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTextTable>
#include <QVBoxLayout>

#include <array>

namespace tarvix::forms {

namespace {

constexpr QSize kFirstSize(860, 640);
constexpr int kListWidth = 190;
constexpr int kCellPadding = 4;
constexpr int kFileRole = Qt::UserRole;

// In the order of reading.
struct Page {
    const char* file;
    const char* title;
};
constexpr std::array kPages{
    Page{"guide.md", "Guide"},
    Page{"general.md", "General information"},
    Page{"special-rule.md", "Special Rule"},
    Page{"advanced.md", "Advanced functions"},
    Page{"hot-keys.md", "Hot key codes"},
    Page{"version-changes.md", "Version changes"},
};

QString TextOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return QObject::tr("%1 can't be read.").arg(path);
    return QString::fromUtf8(file.readAll());
}

void LayOutTables(QTextDocument& document) {
    for (QTextFrame* frame : document.rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (table == nullptr) continue;
        QTextTableFormat format = table->format();
        format.setCellPadding(kCellPadding);
        format.setCellSpacing(0);
        format.setBorder(0);
        table->setFormat(format);
    }
}

} // namespace

HelpWindow::HelpWindow(QWidget* parent)
    : QWidget(parent, Qt::Window), pages_(new QListWidget), text_(new QTextBrowser),
      find_(new QLineEdit), found_(new QLabel) {
    setObjectName("HelpWindow");
    setWindowTitle("Tarvix Help");
    pages_->setObjectName("lstPages");
    pages_->setAccessibleName("Pages");
    text_->setObjectName("txtHelp");
    text_->setAccessibleName("Help text");
    text_->setOpenLinks(false);
    text_->document()->setDocumentMargin(16);
    find_->setObjectName("txtFindHelp");
    find_->setPlaceholderText("Find in all pages");
    find_->setAccessibleName("Find in all pages");
    find_->setClearButtonEnabled(true);
    auto* line = new QHBoxLayout;
    line->addWidget(find_, 1);
    line->addWidget(found_);
    auto* split = new QSplitter;
    split->addWidget(pages_);
    split->addWidget(text_);
    split->setStretchFactor(1, 1);
    split->setSizes({kListWidth, kFirstSize.width() - kListWidth});
    auto* column = new QVBoxLayout(this);
    column->addLayout(line);
    column->addWidget(split, 1);
    connect(pages_, &QListWidget::currentRowChanged, this, [this](int row) { Open(row); });
    connect(find_, &QLineEdit::textEdited, this, [this] {
        text_->moveCursor(QTextCursor::Start);
        Find(false);
    });
    connect(text_, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
        if (link.isRelative()) return ShowPage(folder_ + "/" + link.path());
        QDesktopServices::openUrl(link);
    });
    AddKeys();
    resize(kFirstSize);
}

void HelpWindow::AddKeys() {
    const auto on = [this](const QKeySequence& key, auto act) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, act);
    };
    on(QKeySequence::Find, [this] { find_->setFocus(Qt::ShortcutFocusReason); });
    on(QKeySequence::FindNext, [this] { Find(false); });
    on(QKeySequence::FindPrevious, [this] { Find(true); });
    on(Qt::Key_Escape, [this] { close(); });
    connect(find_, &QLineEdit::returnPressed, this, [this] { Find(false); });
}

void HelpWindow::ReadPages(const QString& folder) {
    if (folder == folder_) return;
    folder_ = folder;
    pages_->clear();
    for (const Page& page : kPages) {
        const QString file = folder + "/" + page.file;
        if (!QFileInfo::exists(file)) continue;
        auto* entry = new QListWidgetItem(page.title, pages_);
        entry->setData(kFileRole, file);
    }
}

void HelpWindow::ShowPage(const QString& file) {
    const QFileInfo info(file);
    ReadPages(info.path());
    for (int i = 0; i < pages_->count(); ++i) {
        if (pages_->item(i)->data(kFileRole) == info.filePath()) pages_->setCurrentRow(i);
    }
    if (pages_->count() == 0) text_->setPlainText(TextOf(file));
    show();
    raise();
    activateWindow();
    text_->setFocus();
}

void HelpWindow::Open(int page) {
    if (page < 0) return;
    text_->setMarkdown(TextOf(pages_->item(page)->data(kFileRole).toString()));
    LayOutTables(*text_->document());
}

bool HelpWindow::FindInPage(bool isBackward, bool fromEdge) {
    if (fromEdge) text_->moveCursor(isBackward ? QTextCursor::End : QTextCursor::Start);
    return text_->find(find_->text(),
                       isBackward ? QTextDocument::FindBackward : QTextDocument::FindFlags());
}

// Goes on in the next pages, and from the last to the first.
void HelpWindow::Find(bool isBackward) {
    found_->clear();
    if (find_->text().isEmpty() || FindInPage(isBackward, false)) return;
    const int begin = pages_->currentRow();
    const int count = pages_->count();
    for (int i = 1; i <= count; ++i) {
        pages_->setCurrentRow((begin + (isBackward ? count - i : i) + count) % count);
        if (FindInPage(isBackward, true)) return;
    }
    found_->setText("Not found");
}

} // namespace tarvix::forms
