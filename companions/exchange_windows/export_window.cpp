#include "companions/exchange_windows/export_window.h"

#include "companions/exchange/chapter_copy.h"
#include "companions/exchange/exchange_texts.h"
#include "companions/exchange/lesson_documents.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>

namespace orvanta {

using namespace Qt::StringLiterals;

ExportWindow::ExportWindow(TextLanguage language, ExportServices services)
    : CompanionWindow(u"Export"_s, language),
      LessonBox(new QComboBox(this)),
      ChooseLesson(new QPushButton(this)),
      FormatBox(new QComboBox(this)),
      TargetText(new QLineEdit(this)),
      ChooseTarget(new QPushButton(this)),
      Summary(new QLabel(this)),
      Progress(new QProgressBar(this)),
      ExportNow(new QPushButton(this)),
      m_services(std::move(services))
{
    for (const ExportFormatRow& row : exportFormats()) {
        FormatBox->addItem(text(row.text));
    }
    for (const QString& lesson : m_services.recentLessons) {
        LessonBox->addItem(QFileInfo(lesson).fileName(), lesson);
        LessonBox->setItemData(LessonBox->count() - 1, lesson, Qt::ToolTipRole);
    }
    layOut();
    connectHandlers();
    proposeTarget();
    (ExportNow->isEnabled() ? ExportNow : ChooseLesson)->setFocus();
}

ExportWindow::~ExportWindow() = default;

void ExportWindow::addRows(QGridLayout& grid)
{
    constexpr int kFields = 1;
    constexpr int kButtons = 2;
    constexpr int kTargetRow = 2;
    grid.addWidget(labelFor(*LessonBox, u"LessonBox"), 0, 0);
    grid.addWidget(LessonBox, 0, kFields);
    grid.addWidget(ChooseLesson, 0, kButtons);
    grid.addWidget(labelFor(*FormatBox, u"FormatBox"), 1, 0);
    grid.addWidget(FormatBox, 1, kFields);
    grid.addWidget(labelFor(*TargetText, u"TargetText"), kTargetRow, 0);
    grid.addWidget(TargetText, kTargetRow, kFields);
    grid.addWidget(ChooseTarget, kTargetRow, kButtons);
    grid.setColumnStretch(kFields, 1);
}

void ExportWindow::layOut()
{
    constexpr int kFirstWidth = 640;
    auto* top = new QGridLayout;
    addRows(*top);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(Summary, 1);
    bottom->addWidget(ExportNow);
    bottom->addWidget(CloseButton);
    auto* all = new QVBoxLayout(this);
    all->addLayout(top);
    all->addWidget(Progress);
    all->addWidget(Remarks);
    all->addStretch(1);
    all->addLayout(bottom);
    nameControl(*ChooseLesson, u"ChooseLesson");
    nameControl(*ChooseTarget, u"ChooseTarget");
    nameControl(*Progress, u"Progress");
    nameControl(*Remarks, u"Remarks");
    nameControl(*ExportNow, u"ExportNow");
    nameControl(*CloseButton, u"CloseButton");
    Summary->setObjectName(u"Summary"_s);
    Summary->setWordWrap(true);
    LessonBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    Progress->hide();
    ExportNow->setDefault(true);
    for (QPushButton* button : {ChooseLesson, ChooseTarget, ExportNow, CloseButton}) {
        button->setAutoDefault(true); // Return presses what has the focus
    }
    resize(kFirstWidth, sizeHint().height());
}

void ExportWindow::connectHandlers()
{
    connect(LessonBox, &QComboBox::currentIndexChanged, this, &ExportWindow::proposeTarget);
    connect(FormatBox, &QComboBox::currentIndexChanged, this, &ExportWindow::proposeTarget);
    connect(TargetText, &QLineEdit::textChanged, this, [this] { setBusy(m_isBusy); });
    connect(ChooseLesson, &QPushButton::clicked, this,
            &ExportWindow::ExportWindow_ChooseLesson_Click);
    connect(ChooseTarget, &QPushButton::clicked, this,
            &ExportWindow::ExportWindow_ChooseTarget_Click);
    connect(ExportNow, &QPushButton::clicked, this, &ExportWindow::ExportWindow_ExportNow_Click);
    connect(this, &CompanionWindow::dropped, this,
            [this](const QStringList& files) { take(files.value(0)); });
}

ExportOrder ExportWindow::order() const
{
    const auto row = static_cast<std::size_t>(std::max(FormatBox->currentIndex(), 0));
    return {.lesson = LessonBox->currentData().toString(),
            .target = TargetText->text(),
            .format = exportFormats()[row].format};
}

void ExportWindow::take(const QString& lesson)
{
    if (lesson.isEmpty() || m_isBusy) {
        return;
    }
    const QString whole = QFileInfo(lesson).absoluteFilePath();
    const int known = LessonBox->findData(whole);
    if (known < 0) {
        LessonBox->insertItem(0, QFileInfo(whole).fileName(), whole);
    }
    LessonBox->setCurrentIndex(std::max(known, 0));
    proposeTarget();
}

/// Of the lesson's clip, for a copy of it.
static QString endingFor(const ExportOrder& order)
{
    if (order.format != ExportFormat::ClipWithChapters) {
        return QStringView(exportFormatRow(order.format).ending).toString();
    }
    for (const LessonPacket& packet : readLessonDocument(order.lesson).lesson.packets) {
        const QString ending = QFileInfo(packet.markedClip).suffix();
        if (!ending.isEmpty()) {
            return ending;
        }
    }
    return u"mkv"_s;
}

/// A new file beside the lesson.
void ExportWindow::proposeTarget()
{
    const ExportOrder now = order();
    if (!now.lesson.isEmpty()) {
        const QFileInfo lesson(now.lesson);
        const QString base = lesson.path() + u'/' + lesson.completeBaseName();
        const QString ending = u'.' + endingFor(now);
        QString target = base + ending;
        for (int number = 2; QFileInfo::exists(target); ++number) {
            target = base + u" (%1)"_s.arg(number) + ending;
        }
        TargetText->setText(target);
    }
    Summary->setText(now.lesson.isEmpty() ? text(u"Summary.empty") : QString());
    showRemarks({});
    setBusy(m_isBusy);
}

void ExportWindow::ExportWindow_ChooseLesson_Click()
{
    const QString now = order().lesson;
    const QString folder = now.isEmpty() ? QDir::homePath() : QFileInfo(now).path();
    take(m_services.pickLesson(*this, text(u"ChooseLesson.title"), folder));
}

void ExportWindow::ExportWindow_ChooseTarget_Click()
{
    const QString target =
        m_services.pickTarget(*this, text(u"ChooseTarget.title"), TargetText->text());
    if (!target.isEmpty()) {
        TargetText->setText(target);
    }
}

void ExportWindow::ExportWindow_ExportNow_Click()
{
    if (m_isBusy) {
        m_isCancelled = true;
        if (m_copy) {
            m_copy->cancel();
        }
        return;
    }
    setBusy(true);
    showRemarks({});
    Summary->setText(text(u"Summary.writing"));
    m_format = order().format;
    // "this" is used only in what is delivered, which comes only while the window lives.
    m_job.start(*this, [this, order = order()](JobLink& link) {
        ExportPlan plan = planExport(order);
        link.deliver([this, plan = std::move(plan)] { begin(plan); });
    });
}

void ExportWindow::begin(ExportPlan plan)
{
    m_plan = std::move(plan);
    m_next = 0;
    m_isCancelled = false;
    m_written.clear();
    writeNext();
}

void ExportWindow::writeNext()
{
    while (m_next < m_plan.parts.size() && !m_isCancelled) {
        const ExportPart part = m_plan.parts[m_next++];
        if (m_format == ExportFormat::ClipWithChapters) {
            return copyClip(part);
        }
        const bool isWritten = writeWholeFile(part.target, exportedBytes(m_plan, part, m_format));
        takePart(part, isWritten ? nullptr : u"unwritable", {});
    }
    end();
}

void ExportWindow::copyClip(const ExportPart& part)
{
    m_copy = std::make_unique<ChapterCopy>();
    Progress->setValue(0);
    Progress->show();
    connect(m_copy.get(), &ChapterCopy::progressed, Progress, &QProgressBar::setValue);
    connect(
        m_copy.get(), &ChapterCopy::finished, this,
        [this, part](const char16_t* failure, const QString& detail) {
            takePart(part, failure, detail);
            writeNext();
        },
        Qt::QueuedConnection); // it is still at work when it says so
    m_copy->start(m_plan.lesson.packets[part.packet], part.target);
}

void ExportWindow::takePart(const ExportPart& part, const char16_t* failure, const QString& detail)
{
    if (failure == nullptr) {
        m_written.append(QFileInfo(part.target).fileName());
    } else {
        m_plan.failures.push_back({part.target, {failure, 0, detail}});
    }
}

void ExportWindow::end()
{
    m_copy.reset();
    Progress->hide();
    showRemarks(remarkLines(m_plan.leftOut, m_plan.failures, language()));
    Summary->setText(m_written.isEmpty()
                         ? text(u"Summary.nothing")
                         : exchangeText(u"written", language()).arg(m_written.join(u", "_s)));
    setBusy(false);
    Q_EMIT finished();
}

void ExportWindow::setBusy(bool isBusy)
{
    m_isBusy = isBusy;
    for (QWidget* control : std::initializer_list<QWidget*>{LessonBox, ChooseLesson, FormatBox,
                                                            TargetText, ChooseTarget}) {
        control->setEnabled(!isBusy);
    }
    ExportNow->setText(text(isBusy ? u"ExportNow.cancel" : u"ExportNow"));
    const ExportOrder now = order();
    ExportNow->setEnabled(isBusy || (!now.lesson.isEmpty() && !now.target.isEmpty()));
}

} // namespace orvanta
