#include "companions/cdcreate/box_window.h"

#include "companions/cdcreate/box_place.h"
#include "companions/cdcreate/box_texts.h"
#include "companions/cdcreate/box_writer.h"
#include "companions/cdcreate/image_program.h"
#include "companions/cdcreate/lesson_box.h"
#include "platform/process/companion.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QDir>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStandardPaths>
#include <QUrl>

namespace orvanta {

using namespace Qt::StringLiterals;

QString BoxWindow::text(QStringView what) const
{
    return interfaceText(u"Box", what, m_language);
}

QString BoxWindow::caption(QStringView what) const
{
    return interfaceText(u"BoxWindow", what, m_language);
}

/// Long paths may be broken behind each folder.
static QString breakable(QString line)
{
    return line.replace(u'/', u"/\u200B"_s);
}

QStringList BoxWindow::lessons() const
{
    QStringList files;
    for (int row = 0; row < LessonList->count(); ++row) {
        files.append(LessonList->item(row)->data(Qt::UserRole).toString());
    }
    return files;
}

void BoxWindow::addLessons(const QStringList& files)
{
    QStringList strangers;
    for (const QString& file : files) {
        const QString path = QDir::cleanPath(QFileInfo(file).absoluteFilePath());
        if (!isLessonDocument(path)) {
            strangers.append(path);
        } else if (!lessons().contains(path)) {
            auto* const item = new QListWidgetItem(QFileInfo(path).fileName(), LessonList);
            item->setData(Qt::UserRole, path);
            item->setToolTip(path);
        }
    }
    gather();
    if (!strangers.isEmpty()) {
        ResultLabel->setText(breakable(
            failureText(BoxFailure(BoxProblem::NoLesson, strangers.join(u", "_s)), m_language)));
    }
}

/// The image program may take seconds to look at the drives.
void BoxWindow::lookForDrives()
{
    if (!mayHaveDrives()) {
        return;
    }
    auto* const program = new QProcess(this);
    connect(program, &QProcess::finished, this, [this, program] {
        const auto drives = drivesIn(QString::fromUtf8(program->readAll()));
        if (!drives.empty()) {
            offerDrive(drives.front());
        }
        program->deleteLater();
    });
    program->setProcessChannelMode(QProcess::MergedChannels);
    program->start(imageProgram(), driveArguments());
}

void BoxWindow::offerDrive(const DiscDrive& drive)
{
    m_drive = drive.device;
    DiscOption->setToolTip(drive.name);
    DiscOption->setText(caption(u"DiscOption").arg(drive.device));
    DiscOption->show();
}

void BoxWindow::chooseLessons()
{
    const QString folder =
        LessonList->count() == 0 ? QDir::homePath() : QFileInfo(lessons().last()).path();
    addLessons(QFileDialog::getOpenFileNames(this, text(u"window.choose.lessons"), folder,
                                             text(u"window.choose.kind") + u" (*.vxl *.vxg)"_s));
}

void BoxWindow::removeLessons()
{
    qDeleteAll(LessonList->selectedItems());
    gather();
}

/// What is gathered already is of other lessons.
void BoxWindow::gather()
{
    m_plan.reset();
    forgetResult();
    if (m_task.isRunning()) {
        m_gathersAgain = true;
        m_task.stop();
    } else if (LessonList->count() > 0) {
        m_phase = Phase::Gathering;
        auto plan = std::make_shared<BoxPlan>();
        m_plan = plan;
        m_task.start(
            [plan, files = lessons()](BoxWork& work) { *plan = gatherLesson(files, work); });
    }
    showPlan();
}

void BoxWindow::showPlan()
{
    const bool isKnown = m_plan != nullptr && m_phase == Phase::Idle;
    if (isKnown) {
        const auto count = m_plan->files.size() + m_plan->documents.size() + 1; // the READ ME
        SummaryLabel->setText(text(u"window.summary")
                                  .arg(m_plan->packets.size())
                                  .arg(count)
                                  .arg(sizeText(m_plan->bytes(), m_language)));
        proposeTarget();
    } else {
        SummaryLabel->setText(
            text(LessonList->count() == 0 ? u"window.empty" : u"window.gathering"));
    }
    showMissing();
    showState();
}

void BoxWindow::showMissing()
{
    const bool isKnown = m_plan != nullptr && m_phase == Phase::Idle;
    const bool isMissing = isKnown && !m_plan->missing.empty();
    MissingList->clear();
    for (std::size_t i = 0; isMissing && i < m_plan->missing.size(); ++i) {
        const MissingPart& part = m_plan->missing[i];
        const QString line =
            QFileInfo(part.document).fileName() + u": "_s + missingText(part, m_language);
        auto* const item = new QListWidgetItem(line, MissingList);
        item->setToolTip(part.document);
    }
    MissingLabel->setText(caption(u"MissingLabel").arg(MissingList->count()));
    for (QWidget* const widget :
         std::initializer_list<QWidget*>{MissingLabel, MissingList, SkipBox}) {
        widget->setVisible(isMissing);
    }
}

QString BoxWindow::ending() const
{
    return ImageOption->isChecked() ? u".iso"_s : ZipOption->isChecked() ? u".zip"_s : QString();
}

/// Follows the lesson until somebody types another place; then the form's ending alone.
void BoxWindow::proposeTarget()
{
    QString box = TargetEdit->text();
    if (boxKind(box) != BoxKind::Folder) {
        box.chop(4);
    }
    if (!TargetEdit->isModified() && m_plan != nullptr && !m_plan->group.isEmpty()) {
        const QString folder =
            box.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
                          : QFileInfo(box).path();
        box = (QFileInfo(folder).isDir() ? folder : QDir::homePath()) + u'/' +
              QFileInfo(m_plan->group).completeBaseName();
        // A lesson that lies there under its own name is not the box.
        if (QFileInfo::exists(box + ending()) &&
            !mayReplace(box + ending(), ending().isEmpty(), true)) {
            box += text(u"window.target.more");
        }
    }
    const bool isTyped = TargetEdit->isModified();
    TargetEdit->setText(box.isEmpty() ? QString() : box + ending());
    TargetEdit->setModified(isTyped);
}

void BoxWindow::chooseTarget()
{
    const QString folder = QFileDialog::getExistingDirectory(this, text(u"window.choose.target"),
                                                             QFileInfo(target()).path());
    if (!folder.isEmpty()) {
        forgetResult();
        TargetEdit->setText(QDir(folder).filePath(QFileInfo(target()).fileName()));
        TargetEdit->setModified(true);
    }
}

QString BoxWindow::target() const
{
    const QString typed = TargetEdit->text();
    return typed.isEmpty() ? QString() : QDir::cleanPath(QDir::home().absoluteFilePath(typed));
}

/// Whatever is at the target, a disc is made beside it.
bool BoxWindow::mayBeMade() const
{
    return DiscOption->isChecked() ||
           (!target().isEmpty() &&
            mayReplace(target(), boxKind(target()) == BoxKind::Folder, ReplaceBox->isChecked()));
}

bool BoxWindow::canStart() const
{
    const bool isWhole = m_plan != nullptr && !m_plan->packets.empty() && m_plan->refused.isEmpty();
    return isWhole && m_phase == Phase::Idle && mayBeMade() &&
           (m_plan->missing.empty() || SkipBox->isChecked());
}

void BoxWindow::showState()
{
    const bool isMaking = m_phase == Phase::Making;
    for (QWidget* const widget : std::initializer_list<QWidget*>{LessonList, AddButton, FormBox,
                                                                 BrowserBox, ReplaceBox, SkipBox}) {
        widget->setEnabled(!isMaking);
    }
    for (QWidget* const widget : std::initializer_list<QWidget*>{TargetEdit, TargetButton}) {
        widget->setEnabled(!isMaking && !DiscOption->isChecked());
    }
    RemoveButton->setEnabled(!isMaking && !LessonList->selectedItems().isEmpty());
    showWhetherTaken();
    StartButton->setEnabled(canStart());
    StartButton->setDefault(true);
    CloseButton->setText(caption(isMaking ? u"CloseButton.stop" : u"CloseButton"));
    ProgressBar->setVisible(isMaking);
    ProgressLabel->setVisible(isMaking);
}

/// Something stands where the box would come.
void BoxWindow::showWhetherTaken()
{
    const bool isFolder = boxKind(target()) == BoxKind::Folder;
    const bool counts = m_phase != Phase::Making && !DiscOption->isChecked() && !target().isEmpty();
    const bool isTaken = counts && !mayReplace(target(), isFolder, false);
    const bool isBox = isTaken && mayReplace(target(), isFolder, true);
    ReplaceBox->setVisible(isBox);
    if (isTaken && !isBox) {
        ResultLabel->setText(failureText(BoxFailure(BoxProblem::Exists), m_language));
    }
}

void BoxWindow::start()
{
    if (!canStart()) {
        return;
    }
    const bool isDisc = DiscOption->isChecked();
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    QDir().mkpath(cache);
    const BoxOrder order = {.target = isDisc ? cache + u"/disc.iso"_s : target(),
                            .drive = isDisc ? m_drive : QString(),
                            .skipsMissing = SkipBox->isChecked(),
                            .replaces = ReplaceBox->isChecked(),
                            .extras = BrowserBox->isChecked() ? m_makePage : MakeExtras()};
    m_phase = Phase::Making;
    m_made = isDisc ? m_drive : order.target;
    m_speed = BoxSpeed();
    forgetResult();
    ProgressBar->setValue(0);
    ProgressLabel->clear();
    m_task.start([plan = *m_plan, order](BoxWork& work) { writeBox(plan, order, work); });
    showState();
    CloseButton->setFocus();
}

void BoxWindow::stopOrClose()
{
    if (m_phase == Phase::Making) {
        m_task.stop();
    } else {
        close();
    }
}

void BoxWindow::showProgress(const BoxState& state)
{
    m_speed.take(state, std::chrono::steady_clock::now());
    if (m_phase == Phase::Making) {
        const qint64 most = ProgressBar->maximum();
        const double share =
            state.all > 0 ? static_cast<double>(state.done) / static_cast<double>(state.all) : 0;
        ProgressBar->setValue(static_cast<int>(share * static_cast<double>(most)));
        ProgressLabel->setText(progressText(state, m_speed, m_language));
    }
}

void BoxWindow::end(const BoxFailure* failure)
{
    const Phase ended = std::exchange(m_phase, Phase::Idle);
    if (m_closes) {
        close();
    } else if (ended == Phase::Making) {
        showResult(failure);
    } else if (std::exchange(m_gathersAgain, false)) {
        gather();
    } else {
        showPlan();
    }
}

void BoxWindow::showResult(const BoxFailure* failure)
{
    ReplaceBox->setChecked(false);
    showState();
    if (failure != nullptr) {
        ResultLabel->setText(breakable(failureText(*failure, m_language)));
        StartButton->setFocus();
        return;
    }
    ResultLabel->setText(breakable(text(u"window.done").arg(m_made)));
    if (m_made != m_drive) {
        OpenButton->show();
        OpenButton->setFocus(Qt::TabFocusReason); // shows that it has it
    }
}

/// A folder itself, of a file the folder that it is in.
void BoxWindow::openMade()
{
    const QFileInfo made(m_made);
    openAddress(QUrl::fromLocalFile(made.isDir() ? m_made : made.path()));
}

/// It was about another box.
void BoxWindow::forgetResult()
{
    ResultLabel->clear();
    OpenButton->hide();
}

void BoxWindow::closeSoon()
{
    m_closes = true;
    close();
}

void BoxWindow::closeEvent(QCloseEvent* event)
{
    if (m_task.isRunning()) {
        m_closes = true;
        m_task.stop();
        event->ignore();
    } else {
        event->accept();
    }
}

void BoxWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls() && m_phase != Phase::Making) {
        event->acceptProposedAction();
    }
}

void BoxWindow::dropEvent(QDropEvent* event)
{
    QStringList files;
    for (const QUrl& address : event->mimeData()->urls()) {
        if (address.isLocalFile()) {
            files.append(address.toLocalFile());
        }
    }
    event->acceptProposedAction();
    addLessons(files);
}

void BoxWindow::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape) {
        stopOrClose();
    } else if (event->key() == Qt::Key_Delete && LessonList->hasFocus()) {
        removeLessons();
    } else if (isReturn) {
        auto* const button = qobject_cast<QPushButton*>(focusWidget());
        (button != nullptr ? button : StartButton)->click();
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace orvanta
