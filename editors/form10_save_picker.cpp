#include "editors/form10_save_picker.h"

#include "core/paths.h"
#include "editors/entry_list.h"
#include "editors/file_list_box.h"
#include "editors/folder_names.h"
#include "editors/folder_tree.h"
#include "platform/screen/window_basics.h"

#include <QBoxLayout>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>

namespace orvanta {

using namespace Qt::StringLiterals;

Form10::Form10(Module1& module, const HandlerBoundary& boundary, const QString& pattern,
               const QString& proposedName, QWidget* parent)
    : PickerWindow(module, boundary, u"Form10", pattern, parent)
{
    module.picker.SaveFileName.clear();
    buildNameRow();
    setUpControls();
    connectHandlers();
    connect(File1, &FileListBox::fileChosen, this,
            this->boundary()([this] { Form10_File1_Click(); }));
    connect(Text1, &QLineEdit::textChanged, this, &Form10::showOutlook);
    showStoredFolder();
    if (!proposedName.isEmpty()) {
        Text1->setText(proposedName);
    }
    Text1->setFocus();
    Text1->selectAll();
}

void Form10::buildNameRow()
{
    FolderLabel = new QLabel(this);
    FolderLabel->setTextFormat(Qt::PlainText);
    QFont prominent = FolderLabel->font();
    prominent.setBold(true);
    FolderLabel->setFont(prominent);
    lowerPart()->addWidget(FolderLabel);
    Text1 = new LineBox(this);
    Label1 = new QLabel(this);
    Label1->setForegroundRole(QPalette::PlaceholderText);
    auto* row = new QHBoxLayout;
    row->addWidget(boxLabel(texts()(u"Text1.label"), Text1));
    row->addWidget(Text1);
    row->addWidget(new QLabel(pattern().mid(1), this));
    lowerPart()->addLayout(row);
    lowerPart()->addWidget(Label1);
}

ControlRows Form10::controls()
{
    return {
        {this, u"Form10"},   {PathBox, u"PathBox"},         {FolderTreeview1, u"FolderTreeview1"},
        {File1, u"File1"},   {FolderLabel, u"FolderLabel"}, {Text1, u"Text1"},
        {Label1, u"Label1"}, {Command2, u"Command2"},       {Command1, u"Command1"}};
}

QString Form10::target() const
{
    return AddBackslash(File1->folder()) + Text1->text() + pattern().mid(1);
}

/// Known beforehand only: a disk may still turn out to be full.
static bool canBeSaved(const QString& file)
{
    constexpr qsizetype kLongestName = 255; // bytes, on every usual file system
    const QString name = file.mid(file.lastIndexOf(u'/') + 1);
    const QFileInfo there(file);
    if (there.isDir() || QFile::encodeName(name).size() > kLongestName) {
        return false;
    }
    // An older file is replaced where a link to it leads.
    const QString target = there.exists() ? there.canonicalFilePath() : file;
    const QFileInfo folder(folderOfPath(target));
    return folder.isDir() && folder.isWritable() && folder.isExecutable() &&
           (!there.exists() || there.isWritable());
}

void Form10::showOutlook()
{
    QString outlook;
    if (!Text1->text().isEmpty()) {
        if (!canBeSaved(target())) {
            outlook = texts()(u"Label1.denied");
        } else if (QFileInfo::exists(target())) {
            outlook = texts()(u"Label1.replaced");
        }
    }
    Label1->setText(outlook);
}

void Form10::folderShown()
{
    constexpr int kLongestName = 30; // average letters: a longer one would widen the window
    const QString folder = QDir(File1->folder()).dirName();
    const QFontMetrics metrics = FolderLabel->fontMetrics();
    const QString name = metrics.elidedText(folder.isEmpty() ? u"/"_s : folder, Qt::ElideMiddle,
                                            kLongestName * metrics.averageCharWidth());
    FolderLabel->setText(texts()(u"FolderLabel.in").arg(name));
    FolderLabel->setToolTip(plainToolTip(File1->folder()));
    showOutlook();
}

void Form10::Form10_File1_Click()
{
    Text1->setText(nameWithoutExtension(File1->FileName()));
}

void Form10::Form10_Command1_Click()
{
    if (Text1->text().isEmpty()) {
        return;
    }
    storeFolder();
    module().picker.SaveFileName = target();
    QDialog::done(Accepted);
}

void Form10::Form10_Command2_Click()
{
    QDialog::done(Rejected);
}

void Form10::takeTypedName(const QString& name)
{
    // A whole path was pasted: its extension is the one that OK will append.
    const QString extension = pattern().mid(1);
    const bool hasIt = name.endsWith(extension, Qt::CaseInsensitive);
    Text1->setText(hasIt ? name.chopped(extension.size()) : name);
}

} // namespace orvanta
