// BoxWindow's controls and where they are.

#include "companions/cdcreate/box_window.h"
#include "companions/cdcreate/image_program.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace orvanta {

using namespace Qt::StringLiterals;

BoxWindow::BoxWindow(TextLanguage language, MakeExtras makePage)
    : LessonLabel(new QLabel(this)),
      LessonList(new QListWidget(this)),
      AddButton(new QPushButton(this)),
      RemoveButton(new QPushButton(this)),
      SummaryLabel(new QLabel(this)),
      MissingLabel(new QLabel(this)),
      MissingList(new QListWidget(this)),
      SkipBox(new QCheckBox(this)),
      FormBox(new QGroupBox(this)),
      FolderOption(new QRadioButton(FormBox)),
      ImageOption(new QRadioButton(FormBox)),
      ZipOption(new QRadioButton(FormBox)),
      DiscOption(new QRadioButton(FormBox)),
      TargetLabel(new QLabel(this)),
      TargetEdit(new QLineEdit(this)),
      TargetButton(new QPushButton(this)),
      BrowserBox(new QCheckBox(this)),
      ReplaceBox(new QCheckBox(this)),
      ProgressBar(new QProgressBar(this)),
      ProgressLabel(new QLabel(this)),
      ResultLabel(new QLabel(this)),
      OpenButton(new QPushButton(this)),
      StartButton(new QPushButton(this)),
      CloseButton(new QPushButton(this)),
      m_language(language),
      m_makePage(std::move(makePage))
{
    nameControls(controls());
    applyTexts(controls(), language);
    setWindowIcon(QIcon::fromTheme(u"orvanta"_s, QIcon(u":/orvanta/orvanta.svg"_s)));
    setAcceptDrops(true);
    layOut();
    orderTabs(controls());
    connectHandlers();
    showPlan();
    lookForDrives();
}

BoxWindow::~BoxWindow() = default;

ControlRows BoxWindow::controls()
{
    return {{this, u"BoxWindow"},
            {LessonLabel, u"LessonLabel"},
            {LessonList, u"LessonList"},
            {AddButton, u"AddButton"},
            {RemoveButton, u"RemoveButton"},
            {SummaryLabel, u"SummaryLabel"},
            {MissingLabel, u"MissingLabel"},
            {MissingList, u"MissingList"},
            {SkipBox, u"SkipBox"},
            {FormBox, u"FormBox"},
            {FolderOption, u"FolderOption"},
            {ImageOption, u"ImageOption"},
            {ZipOption, u"ZipOption"},
            {DiscOption, u"DiscOption"},
            {TargetLabel, u"TargetLabel"},
            {TargetEdit, u"TargetEdit"},
            {TargetButton, u"TargetButton"},
            {BrowserBox, u"BrowserBox"},
            {ReplaceBox, u"ReplaceBox"},
            {ProgressBar, u"ProgressBar"},
            {ProgressLabel, u"ProgressLabel"},
            {ResultLabel, u"ResultLabel"},
            {OpenButton, u"OpenButton"},
            {StartButton, u"StartButton"},
            {CloseButton, u"CloseButton"}};
}

void BoxWindow::layOut()
{
    auto* all = new QVBoxLayout(this);
    all->addWidget(lessonPart(), 1);
    all->addWidget(targetPart());
    all->addWidget(endPart());
    constexpr QSize kUsual(560, 480);
    constexpr int kNarrowest = 440;
    resize(kUsual);
    setMinimumWidth(kNarrowest);
}

/// Long paths within it may be broken and never widen the window.
static void letWrap(QLabel& label)
{
    label.setTextFormat(Qt::PlainText);
    label.setWordWrap(true);
    label.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
}

QWidget* BoxWindow::lessonPart()
{
    constexpr int kFewLines = 60;
    auto* part = new QWidget(this);
    auto* grid = new QGridLayout(part);
    grid->setContentsMargins({});
    grid->addWidget(LessonLabel, 0, 0);
    grid->addWidget(LessonList, 1, 0, 3, 1);
    grid->addWidget(AddButton, 1, 1);
    grid->addWidget(RemoveButton, 2, 1);
    grid->setRowStretch(3, 2);
    grid->addWidget(SummaryLabel, 4, 0, 1, 2);
    grid->addWidget(MissingLabel, 5, 0, 1, 2);
    grid->addWidget(MissingList, 6, 0, 1, 2);
    grid->addWidget(SkipBox, 7, 0, 1, 2);
    LessonLabel->setBuddy(LessonList);
    MissingLabel->setBuddy(MissingList);
    LessonList->setMinimumHeight(kFewLines);
    MissingList->setMinimumHeight(kFewLines);
    QSizePolicy grows = MissingList->sizePolicy();
    grows.setVerticalStretch(1); // of its row only while it is there
    MissingList->setSizePolicy(grows);
    LessonList->setSelectionMode(QAbstractItemView::ExtendedSelection);
    letWrap(*SummaryLabel);
    return part;
}

QWidget* BoxWindow::targetPart()
{
    auto* part = new QWidget(this);
    auto* forms = new QVBoxLayout(FormBox);
    for (QRadioButton* const option : {FolderOption, ImageOption, ZipOption, DiscOption}) {
        forms->addWidget(option);
    }
    DiscOption->hide();
    FolderOption->setChecked(true);
    if (imageProgram().isEmpty()) {
        ImageOption->setEnabled(false);
        ImageOption->setToolTip(caption(u"ImageOption.absent"));
    }
    auto* grid = new QGridLayout(part);
    grid->setContentsMargins({});
    grid->addWidget(FormBox, 0, 0, 1, 3);
    grid->addWidget(TargetLabel, 1, 0);
    grid->addWidget(TargetEdit, 1, 1);
    grid->addWidget(TargetButton, 1, 2);
    grid->addWidget(ReplaceBox, 2, 1, 1, 2);
    grid->addWidget(BrowserBox, 3, 1, 1, 2);
    TargetLabel->setBuddy(TargetEdit);
    BrowserBox->setVisible(static_cast<bool>(m_makePage));
    return part;
}

QWidget* BoxWindow::endPart()
{
    constexpr int kSteps = 1000;
    auto* part = new QWidget(this);
    auto* grid = new QGridLayout(part);
    grid->setContentsMargins({});
    grid->addWidget(ProgressBar, 0, 0, 1, 4);
    grid->addWidget(ProgressLabel, 1, 0, 1, 4);
    grid->addWidget(ResultLabel, 2, 0, 1, 4);
    grid->addWidget(OpenButton, 3, 0);
    grid->setColumnStretch(1, 1);
    grid->addWidget(StartButton, 3, 2);
    grid->addWidget(CloseButton, 3, 3);
    ProgressBar->setRange(0, kSteps);
    ProgressBar->setTextVisible(false);
    letWrap(*ProgressLabel);
    letWrap(*ResultLabel);
    for (QWidget* const hidden :
         std::initializer_list<QWidget*>{ProgressBar, ProgressLabel, OpenButton, ReplaceBox}) {
        hidden->hide();
    }
    return part;
}

void BoxWindow::connectHandlers()
{
    connect(AddButton, &QPushButton::clicked, this, [this] { chooseLessons(); });
    connect(RemoveButton, &QPushButton::clicked, this, [this] { removeLessons(); });
    connect(LessonList, &QListWidget::itemSelectionChanged, this, [this] { showState(); });
    for (QRadioButton* const option : {FolderOption, ImageOption, ZipOption, DiscOption}) {
        // Not clicked: assistive technology chooses one without a click.
        connect(option, &QRadioButton::toggled, this, [this](bool chosen) {
            if (chosen) {
                forgetResult();
                proposeTarget();
                showState();
            }
        });
    }
    connect(TargetEdit, &QLineEdit::textChanged, this, [this] {
        ReplaceBox->setChecked(false);
        showState();
    });
    connect(TargetEdit, &QLineEdit::textEdited, this, [this] {
        forgetResult();
        showState();
    });
    connect(TargetButton, &QPushButton::clicked, this, [this] { chooseTarget(); });
    connect(SkipBox, &QCheckBox::toggled, this, [this] { showState(); });
    connect(ReplaceBox, &QCheckBox::toggled, this, [this] { showState(); });
    connect(OpenButton, &QPushButton::clicked, this, [this] { openMade(); });
    connect(StartButton, &QPushButton::clicked, this, [this] { start(); });
    connect(CloseButton, &QPushButton::clicked, this, [this] { stopOrClose(); });
    connect(&m_task, &BoxTask::moved, this, [this](const BoxState& state) { showProgress(state); });
    connect(&m_task, &BoxTask::ended, this, [this](const BoxFailure* failure) { end(failure); });
}

} // namespace orvanta
