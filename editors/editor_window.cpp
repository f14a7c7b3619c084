#include "editors/editor_window.h"

#include "core/paths.h"
#include "editors/file_list_box.h"
#include "editors/focus_ring.h"
#include "editors/folder_names.h"
#include "editors/folder_tree.h"
#include "platform/screen/window_basics.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QShortcut>

#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

EditorWindow::EditorWindow(EditorServices& services, QStringView name, QWidget* parent)
    : QDialog(parent),
      m_services(services),
      m_texts(name, editorLanguage(services.module))
{}

void EditorWindow::buildListControls(QWidget* frame, EntryListView::Look look)
{
    FolderTreeview1 = new FolderTree(m_texts.language(), frame);
    File1 = new FileListBox(frame);
    File1->setEnterClicks(true);
    List1 = new EntryListView(std::move(look), frame);
    Text1 = new LineBox(frame);
    Text2 = new LineBox(frame);
}

void EditorWindow::buildListButtons()
{
    for (QPushButton** button : {&Command3, &Command4, &Command5, &Command6, &Command8, &Command9,
                                 &Command10, &Command2}) {
        *button = captionButton(this);
    }
    Command1 = pictureButton(ButtonPicture::Create, this);
}

void EditorWindow::setUpControls()
{
    nameControls(controls());
    applyTexts(controls(), m_texts.language());
    m_caption = windowTitle();
    // Screen readers and the like look for the window by the name that it always has.
    setAccessibleName(m_caption);
    giveRoomAtTheSides(*this);
    showFocusOfViews(*this);
}

QBoxLayout* EditorWindow::editRow()
{
    auto* row = new QHBoxLayout;
    for (QPushButton* command : {Command8, Command5, Command6}) {
        row->addWidget(command);
    }
    row->addStretch();
    row->addWidget(Command9);
    row->addWidget(Command10);
    return row;
}

static QGridLayout* onePlace(const std::vector<QPushButton*>& buttons, int height)
{
    auto* place = new QGridLayout;
    for (QPushButton* each : buttons) {
        each->setMinimumHeight(height);
        place->addWidget(each, 0, 0);
    }
    return place;
}

QBoxLayout* EditorWindow::buttonRow(const std::vector<Place>& left, const Place& create)
{
    auto* row = new QHBoxLayout;
    const int height = Command1->sizeHint().height();
    for (const Place& place : left) {
        row->addLayout(onePlace(place, height));
    }
    row->addStretch();
    row->addLayout(onePlace({Command2}, height));
    row->addLayout(onePlace(create, height));
    return row;
}

void EditorWindow::finishLayout(QSize firstSize)
{
    orderTabs(controls());
    setSizeGripEnabled(true);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    resize(firstSizeOn(*screen(), firstSize));
}

void EditorWindow::connectListHandlers()
{
    on(FolderTreeview1, &FolderTree::folderChosen,
       [this](const QString& folder) { FolderTreeview1_FolderClick(folder); });
    on(Command2, &QPushButton::clicked, [this](auto&&...) { Command2_Click(); });
    on(Command8, &QPushButton::clicked, [this](auto&&...) { Command8_Click(); });
    on(Command6, &QPushButton::clicked, [this](auto&&...) { List1->change(removeAll); });
    connectRemove(List1, Command5);
    connectMoves(List1, Command9, Command10);
    on(List1, &EntryListView::documentChanged, [this] { showTitle(); });
    connectUndo();
    connectRunOf(Text1, List1);
    connectRunOf(Text2, List1);
}

void EditorWindow::connectUndo()
{
    auto* undo = new QShortcut(this);
    undo->setKeys(undoKeys());
    on(undo, &QShortcut::activated, [this] { shownList()->undo(); });
    auto* redo = new QShortcut(this);
    redo->setKeys(redoKeys());
    on(redo, &QShortcut::activated, [this] { shownList()->redo(); });
}

void EditorWindow::connectRunOf(const LineBox* box, EntryListView* list)
{
    on(box, &QLineEdit::editingFinished, [list] { list->endRun(); });
}

void EditorWindow::connectRemove(EntryListView* list, QPushButton* remove)
{
    const auto handler = [list](auto&&...) { list->change(removeSelected); };
    on(remove, &QPushButton::clicked, handler);
    on(list, &EntryListView::removeWanted, handler);
}

void EditorWindow::connectMoves(EntryListView* list, QPushButton* up, QPushButton* down)
{
    const auto upward = [list](auto&&...) { list->change(moveUp); };
    const auto downward = [list](auto&&...) { list->change(moveDown); };
    on(list, &EntryListView::moveUpWanted, upward);
    on(list, &EntryListView::moveDownWanted, downward);
    on(list, &EntryListView::moveWanted, [list](int place) {
        list->change([place](EntryList& entries) { moveBefore(entries, place); });
    });
    if (up != nullptr && down != nullptr) {
        on(up, &QPushButton::clicked, upward);
        on(down, &QPushButton::clicked, downward);
    }
}

void EditorWindow::showTitle()
{
    const QString name = onOneLine(fileNameOfPath(shownList()->document().file));
    const bool isChanged = !name.isEmpty() && shownList()->differsFromItsFile();
    // A title without the place of the sign takes none.
    if (name.isEmpty()) {
        setWindowModified(false);
        setWindowTitle(m_caption);
    } else {
        const QString escaped = QString(name).replace(u"[*]"_s, u"[*][*]"_s);
        setWindowTitle(m_caption + u" — "_s + escaped + u"[*]"_s);
        setWindowModified(isChanged);
    }
    const QString heard = isChanged ? name + u'*' : name;
    if (heard != accessibleDescription()) {
        setAccessibleDescription(heard);
    }
}

void EditorWindow::showStoredFolder(FolderTree* tree)
{
    tree->setFolder(startFolder(m_services.module.settings().folder()));
}

void EditorWindow::FolderTreeview1_FolderClick(const QString& folder)
{
    File1->setFolder(folder);
}

void EditorWindow::Command2_Click()
{
    done(Rejected);
}

void EditorWindow::Command8_Click()
{
    List1->change([this](EntryList& list) {
        list.entries += entriesOfFiles(File1->folder(), File1->names());
    });
}

QString EditorWindow::pickFile(const QString& pattern)
{
    const bool picked = m_services.pickers.ShowOpenPicker(pattern, false);
    return picked ? m_services.module.picker.PickedFiles.value(1) : QString();
}

void EditorWindow::loadList(const QString& pattern, void (*load)(EntryList&, const QString&))
{
    trapped("loading into an editor", [&] {
        const QString document = pickFile(pattern);
        if (!document.isEmpty()) {
            List1->changeState([&](ListState& state) {
                state.document = {.file = document, .folder = folderOfPath(document)};
                load(state.list, document);
                setWritten(state, document);
            });
        }
    });
}

void EditorWindow::save(const QString& pattern, const Write& write)
{
    save(pattern, *List1, write);
}

void EditorWindow::save(const QString& pattern, EntryListView& list, const Write& write)
{
    trapped("saving from an editor", [&] {
        const QString name = nameWithoutExtension(fileNameOfPath(list.document().file));
        m_services.pickers.ShowSavePicker(pattern, name);
        const QString target = m_services.module.picker.SaveFileName;
        if (!target.isEmpty()) {
            write(target);
            list.setWritten(target);
        }
    });
}

void EditorWindow::create(const EntryListView& list, const QString& temporaryName,
                          const Write& write)
{
    if (list.list().entries.isEmpty()) {
        done(Rejected);
        return;
    }
    trapped("creating from an editor", [&] {
        write(programFile(m_services.module.ApplicationFolder, temporaryName));
        m_services.module.EditorDone = true;
        done(Accepted);
    });
}

bool EditorWindow::isEmpty() const
{
    return List1->list().entries.isEmpty();
}

void EditorWindow::reject()
{
    if (isEmpty()) {
        done(Rejected);
    }
}

void EditorWindow::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* button = qobject_cast<QAbstractButton*>(focusWidget());
    if (isReturn && button != nullptr && !event->isAutoRepeat()) {
        button->click();
    } else {
        QDialog::keyPressEvent(event);
    }
}

void EditorWindow::closeEvent(QCloseEvent* event)
{
    done(Rejected);
    event->accept();
}

void EditorWindow::done(int result)
{
    m_services.module.settings().setFolder(File1->folder());
    QDialog::done(result);
}

} // namespace orvanta
