#include "editors/picker_window.h"

#include "editors/file_list_box.h"
#include "editors/focus_ring.h"
#include "editors/folder_names.h"
#include "editors/folder_tree.h"
#include "platform/screen/window_basics.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>

#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

PickerWindow::PickerWindow(Module1& module, HandlerBoundary boundary, QStringView name,
                           const QString& pattern, QWidget* parent)
    : QDialog(parent),
      m_module(module),
      m_boundary(std::move(boundary)),
      m_texts(name, module.settings().textLanguage(TextLanguage::Russian)),
      m_pattern(pattern)
{
    setModal(true);
    setSizeGripEnabled(true);
    buildControls();
    layOut();
}

void PickerWindow::buildControls()
{
    PathBox = new LineBox(this);
    PathBox->installEventFilter(this);
    FolderTreeview1 = new FolderTree(m_texts.language(), this);
    File1 = new FileListBox(this);
    File1->setPattern(m_pattern);
    Command1 = pictureButton(ButtonPicture::Ok, this);
    Command1->setDefault(true);
    Command2 = captionButton(this);
    Command2->setAutoDefault(true); // Enter on it is Cancel
}

void PickerWindow::layOut()
{
    auto* path = new QHBoxLayout;
    path->addWidget(boxLabel(m_texts(u"PathBox.label"), PathBox));
    path->addWidget(PathBox);
    auto* lists = new QSplitter(this);
    lists->addWidget(FolderTreeview1);
    lists->addWidget(File1);
    lists->setStretchFactor(0, 2);
    lists->setStretchFactor(1, 3);
    lists->setChildrenCollapsible(false);
    m_lowerPart = new QVBoxLayout;
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(Command2);
    buttons->addWidget(Command1);
    Command2->setMinimumHeight(Command1->sizeHint().height());
    auto* all = new QVBoxLayout(this);
    all->addLayout(path);
    all->addWidget(lists, 1);
    all->addLayout(m_lowerPart);
    all->addLayout(buttons);
    resize(firstSizeOn(*screen(), {720, 480}));
}

void PickerWindow::setUpControls()
{
    nameControls(controls());
    applyTexts(controls(), m_texts.language());
    giveRoomAtTheSides(*this);
    showFocusOfViews(*this);
    orderTabs(controls());
}

void PickerWindow::connectHandlers()
{
    const auto on = [this](auto* sender, auto signal, auto handler) {
        connect(sender, signal, this, m_boundary(handler));
    };
    on(FolderTreeview1, &FolderTree::folderChosen,
       [this](const QString& folder) { FolderTreeview1_FolderClick(folder); });
    on(File1, &FileListBox::fileChosen, [this] { showPath(File1->folder()); });
    on(File1, &QListView::doubleClicked, [this](auto&&...) { Command1_Click(); });
    on(Command1, &QPushButton::clicked, [this](auto&&...) { pressOk(); });
    on(Command2, &QPushButton::clicked, [this](auto&&...) { Command2_Click(); });
}

void PickerWindow::showStoredFolder()
{
    FolderTreeview1->setFolder(startFolder(m_module.settings().folder()));
    File1->setFocus();
}

void PickerWindow::storeFolder()
{
    m_module.settings().setFolder(File1->folder());
}

void PickerWindow::FolderTreeview1_FolderClick(const QString& folder)
{
    // A folder that has gone since leaves the list with its former one.
    if (File1->setFolder(folder)) {
        File1->selectFirst();
        showPath(folder);
        folderShown();
    }
}

void PickerWindow::showPath(const QString& folder)
{
    PathBox->show(folder);
    m_shownPath = PathBox->text();
}

// A path that is typed and not gone to yet is what the user means, not the folder that the list
// still shows.
void PickerWindow::pressOk()
{
    if (PathBox->text() != m_shownPath) {
        goToTypedPath();
    } else {
        Command1_Click();
    }
}

void PickerWindow::goToTypedPath()
{
    const TypedPath typed = typedPath(PathBox->text(), File1->folder());
    if (typed.folder.isEmpty() || !leadsSomewhere(typed) ||
        !FolderTreeview1->setFolder(typed.folder)) {
        PathBox->selectAll();
        return;
    }
    if (!typed.name.isEmpty()) {
        takeTypedName(typed.name);
    }
}

static bool isEnter(const QEvent& event)
{
    if (event.type() != QEvent::KeyPress) {
        return false;
    }
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool PickerWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == PathBox && isEnter(*event)) {
        m_boundary([this] { goToTypedPath(); })();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void PickerWindow::reject()
{
    m_boundary([this] { Command2_Click(); })();
}

void PickerWindow::closeEvent(QCloseEvent* event)
{
    // Not Cancel: what was picked before stays.
    QDialog::done(Rejected);
    event->accept();
}

} // namespace orvanta
