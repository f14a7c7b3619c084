#include "companions/exchange_windows/import_window.h"

#include "companions/exchange/exchange_texts.h"
#include "companions/exchange/import_command.h"
#include "companions/exchange/lesson_documents.h"
#include "model/editing/time_text.h"
#include "platform/media/clip_facts.h"

#include <QBoxLayout>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>

namespace orvanta {

using namespace Qt::StringLiterals;

ImportWindow::ImportWindow(TextLanguage language, ImportServices services)
    : CompanionWindow(u"Import"_s, language),
      SourceText(new QLineEdit(this)),
      ChooseSource(new QPushButton(this)),
      ClipText(new QLineEdit(this)),
      ChooseClip(new QPushButton(this)),
      Preview(new QTreeWidget(this)),
      Summary(new QLabel(this)),
      SaveAndOpen(new QPushButton(this)),
      m_services(std::move(services))
{
    m_order.endText = exchangeText(u"end", language);
    layOut();
    connectHandlers();
    showSummary();
    ChooseSource->setFocus();
}

/// Dark schemes that do not say how to write it leave it dark on dark.
static void fadePlaceholder(QLineEdit& box)
{
    constexpr int kFaded = 170;
    QPalette palette;
    QColor colour = QGuiApplication::palette().color(QPalette::Text); // the box has it later
    colour.setAlpha(kFaded);
    palette.setColor(QPalette::PlaceholderText, colour);
    box.setPalette(palette);
}

static void showWhenEmpty(QLineEdit& box, const QString& text)
{
    constexpr int kFrame = 30;
    box.setReadOnly(true);
    box.setPlaceholderText(text);
    fadePlaceholder(box);
    box.setMinimumWidth(box.fontMetrics().horizontalAdvance(text) + kFrame);
}

void ImportWindow::changeEvent(QEvent* event)
{
    CompanionWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        fadePlaceholder(*SourceText);
        fadePlaceholder(*ClipText);
    }
}

void ImportWindow::layOut()
{
    constexpr int kFields = 1;
    constexpr int kButtons = 2;
    constexpr QSize kFirstSize(720, 520);
    auto* top = new QGridLayout;
    top->addWidget(labelFor(*SourceText, u"SourceText"), 0, 0);
    top->addWidget(SourceText, 0, kFields);
    top->addWidget(ChooseSource, 0, kButtons);
    top->addWidget(labelFor(*ClipText, u"ClipText"), 1, 0);
    top->addWidget(ClipText, 1, kFields);
    top->addWidget(ChooseClip, 1, kButtons);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(Summary, 1);
    bottom->addWidget(SaveAndOpen);
    bottom->addWidget(CloseButton);
    auto* all = new QVBoxLayout(this);
    all->addLayout(top);
    all->addWidget(Preview, 1);
    all->addWidget(Remarks);
    all->addLayout(bottom);
    nameControl(*ChooseSource, u"ChooseSource");
    nameControl(*ChooseClip, u"ChooseClip");
    nameControl(*Preview, u"Preview");
    nameControl(*Remarks, u"Remarks");
    nameControl(*SaveAndOpen, u"SaveAndOpen");
    nameControl(*CloseButton, u"CloseButton");
    Summary->setObjectName(u"Summary"_s);
    showWhenEmpty(*SourceText, text(u"SourceText.empty"));
    showWhenEmpty(*ClipText, text(u"ClipText.empty"));
    Preview->setHeaderLabels({text(u"Preview.time"), text(u"Preview.text"), text(u"Preview.clip")});
    Preview->setUniformRowHeights(true); // many lines
    Preview->header()->resizeSection(1, kFirstSize.width() / 2);
    SaveAndOpen->setDefault(true);
    for (QPushButton* button : {ChooseSource, ChooseClip, SaveAndOpen, CloseButton}) {
        button->setAutoDefault(true); // Return presses what has the focus
    }
    resize(kFirstSize);
}

void ImportWindow::connectHandlers()
{
    connect(ChooseSource, &QPushButton::clicked, this,
            &ImportWindow::ImportWindow_ChooseSource_Click);
    connect(ChooseClip, &QPushButton::clicked, this, &ImportWindow::ImportWindow_ChooseClip_Click);
    connect(SaveAndOpen, &QPushButton::clicked, this,
            &ImportWindow::ImportWindow_SaveAndOpen_Click);
    connect(this, &CompanionWindow::dropped, this, &ImportWindow::takeDropped);
}

QString ImportWindow::folder() const
{
    return m_order.files.isEmpty() ? QDir::homePath()
                                   : QFileInfo(m_order.files.front()).absolutePath();
}

void ImportWindow::ImportWindow_ChooseSource_Click()
{
    const QStringList files = m_services.pickFiles(*this, text(u"ChooseSource.title"), folder());
    if (!files.isEmpty()) {
        take(files);
    }
}

void ImportWindow::ImportWindow_ChooseClip_Click()
{
    const QString clip = m_services.pickClip(*this, text(u"ChooseClip.title"), folder());
    if (!clip.isEmpty()) {
        m_order.clip = clip;
        read();
    }
}

/// A clip that comes beside files which want one is theirs.
void ImportWindow::takeDropped(const QStringList& files)
{
    const bool isClip =
        files.size() == 1 && m_imported.wantsClip && readClipFacts(files.front()).isMedia;
    if (isClip) {
        m_order.clip = files.front();
        read();
    } else if (!files.isEmpty()) {
        take(files);
    }
}

void ImportWindow::take(const QStringList& files)
{
    m_order.files = files;
    m_order.clip.clear();
    read();
}

void ImportWindow::read()
{
    m_isReading = true;
    QStringList names;
    for (const QString& file : m_order.files) {
        names.append(QFileInfo(file).fileName());
    }
    SourceText->setText(names.join(u", "_s));
    SourceText->setToolTip(m_order.files.join(u'\n'));
    ClipText->setText(QFileInfo(m_order.clip).fileName());
    ClipText->setToolTip(m_order.clip);
    SaveAndOpen->setEnabled(false);
    Summary->setText(text(u"Summary.reading"));
    // "this" is used only in what is delivered, which comes only while the window lives.
    m_job.start(*this, [this, order = m_order](JobLink& link) {
        ImportedLesson imported = importFiles(order);
        link.deliver([this, imported = std::move(imported)] { showLesson(imported); });
    });
}

static void appendLines(QTreeWidgetItem& parent, const LessonPacket& packet)
{
    QList<QTreeWidgetItem*> items;
    const QString clip = QFileInfo(packet.markedClip).fileName();
    for (const LessonMark& mark : packet.marks) {
        items.append(new QTreeWidgetItem({markTimeText(mark.seconds), mark.text, clip}));
    }
    for (const LessonClip& each : packet.clips) {
        items.append(new QTreeWidgetItem({QString(), each.text, QFileInfo(each.path).fileName()}));
    }
    parent.addChildren(items);
}

void ImportWindow::showLesson(ImportedLesson imported)
{
    m_isReading = false;
    m_imported = std::move(imported);
    Preview->clear();
    for (const LessonPacket& packet : m_imported.lesson.packets) {
        auto* item = new QTreeWidgetItem(Preview, {packet.title});
        item->setFirstColumnSpanned(true);
        appendLines(*item, packet);
        item->setExpanded(true);
    }
    Preview->setCurrentItem(Preview->topLevelItem(0));
    showRemarks(remarkLines(m_imported.leftOut, m_imported.failures, language()));
    showSummary();
    (m_imported.wantsClip ? ChooseClip : SaveAndOpen)->setFocus();
    Q_EMIT ready();
}

void ImportWindow::showSummary()
{
    std::size_t lines = 0;
    for (const LessonPacket& packet : m_imported.lesson.packets) {
        lines += packet.clips.size() + packet.marks.size();
    }
    const std::size_t packets = m_imported.lesson.packets.size();
    SaveAndOpen->setEnabled(packets > 0);
    ChooseClip->setEnabled(!m_order.files.isEmpty());
    Summary->setText(packets == 0 ? QString() : text(u"Summary").arg(packets).arg(lines));
}

void ImportWindow::ImportWindow_SaveAndOpen_Click()
{
    const Lesson& lesson = m_imported.lesson;
    const QString chosen = m_services.pickTarget(*this, text(u"SaveAndOpen.title"),
                                                 proposedDocument(lesson, folder()));
    if (chosen.isEmpty()) {
        return;
    }
    const ImportTarget target = importTarget(lesson, chosen, m_order.files.front());
    const char16_t* const objection =
        target.objection != nullptr ? target.objection : writeImported(lesson, target.file);
    if (objection != nullptr) {
        showRemarks({remarkText({target.file, {objection, 0, {}}}, language())});
        return;
    }
    Summary->setText(exchangeText(u"written", language()).arg(QFileInfo(target.file).fileName()));
    if (!m_services.open(target.file)) {
        showRemarks({exchangeText(u"noPlayer", language())});
    }
}

} // namespace orvanta
