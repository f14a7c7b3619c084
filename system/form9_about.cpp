#include "system/form9_about.h"

#include "core/version.h"
#include "platform/media/media_library.h"
#include "system/drawn_picture.h"
#include "system/form3_picture_window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr QSize kPictureSize(400, 300);
constexpr QSize kHandbookSize(48, 64);
constexpr int kTextWidth = 380; // a line of about sixty letters

static QLabel* selectableLabel(QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}

static QString aboutText(TextLanguage language)
{
    const MediaLibraryVersions media = mediaLibraryVersions();
    return interfaceText(u"Form9", u"Label1", language)
        .arg(kVersion, media.player, media.codecs, QString::fromLatin1(qVersion()));
}

static QString pictureText(const PictureFacts& picture, TextLanguage language)
{
    const QString processor = interfaceText(u"Form9", u"Label1.processor", language);
    return interfaceText(u"Form9", u"Label1.picture", language)
        .arg(picture.openGlDriver.isEmpty() ? processor : u"OpenGL, "_s + picture.openGlDriver,
             picture.decoder.isEmpty() ? processor : picture.decoder);
}

Form9::Form9(const Module1& module, std::function<PictureFacts()> picture, QWidget* parent)
    : QWidget(parent, Qt::Window),
      Image1(new DrawnPicture(this)),
      Label1(selectableLabel(this)),
      Label2(new QLabel(this)),
      label6(selectableLabel(this)),
      Label7(new QLabel(this)),
      Image8(new DrawnPicture(this)),
      Text1(new QLineEdit(this)),
      Command1(new QPushButton(this)),
      m_module(module),
      m_picture(std::move(picture))
{
    nameControls(controls());
    layOut();
    orderTabs(controls());
    connectHandlers();
}

Form9::~Form9() = default;

void Form9::showAbout()
{
    if (!isVisible()) {
        Form9_Form_Load();
    }
    show();
    raise();
    activateWindow();
}

ControlRows Form9::controls()
{
    return {
        {this, u"Form9"},    {Image1, u"Image1"}, {Label1, u"Label1"},
        {Label2, u"Label2"}, {label6, u"label6"}, {Label7, u"Label7"},
        {Image8, u"Image8"}, {Text1, u"Text1"},   {Command1, u"Command1"},
    };
}

void Form9::layOut()
{
    Image1->setDrawing(u":/orvanta/about/picture.svg"_s);
    Image1->setFixedSize(kPictureSize);
    Image8->setDrawing(u":/orvanta/about/handbook.svg"_s);
    Image8->setFixedSize(kHandbookSize);
    Image8->setFocusPolicy(Qt::NoFocus); // to look at, unlike the other
    Image8->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* columns = new QHBoxLayout;
    columns->setSpacing(24);
    columns->addWidget(Image1, 0, Qt::AlignTop);
    columns->addLayout(textColumn());
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(24, 24, 24, 16);
    rows->setSpacing(16);
    rows->addLayout(columns);
    rows->addWidget(Command1, 0, Qt::AlignRight);
    rows->setSizeConstraint(QLayout::SetFixedSize);
    Command1->setDefault(true);
}

QBoxLayout* Form9::textColumn()
{
    Label1->setWordWrap(true);
    Label1->setFixedWidth(kTextWidth);
    Text1->setReadOnly(true);
    for (QLabel* caption : {Label2, Label7}) {
        QFont font = caption->font();
        font.setBold(true);
        caption->setFont(font);
    }
    auto* note = new QVBoxLayout;
    note->addWidget(Label7);
    note->addWidget(Text1);
    note->addStretch(1);
    note->setSpacing(4);
    auto* handbook = new QHBoxLayout;
    handbook->setSpacing(16);
    handbook->addWidget(Image8, 0, Qt::AlignTop);
    handbook->addLayout(note, 1);
    auto* column = new QVBoxLayout;
    column->setSpacing(6);
    column->addWidget(Label1);
    column->addSpacing(8);
    column->addWidget(Label2);
    column->addWidget(label6);
    column->addSpacing(8);
    column->addLayout(handbook);
    column->addStretch(1);
    return column;
}

void Form9::connectHandlers()
{
    connect(Image1, &DrawnPicture::clicked, this, &Form9::Form9_Image1_Click);
    connect(Command1, &QPushButton::clicked, this, &Form9::Form9_Command1_Click);
    connect(new QShortcut(QKeySequence::Cancel, this), &QShortcut::activated, Command1,
            &QPushButton::click);
}

void Form9::Form9_Form_Load()
{
    const TextLanguage language = m_module.settings().exactTextLanguage(TextLanguage::English);
    applyTexts(controls(), language);
    Label1->setText(aboutText(language) + u"\n\n"_s + pictureText(m_picture(), language));
    Text1->setCursorPosition(0);
    Text1->setAccessibleName(Label7->text());
    Image8->setAccessibleName(Label7->text());
    Image8->setVisible(language == TextLanguage::English);
    Command1->setFocus();
}

void Form9::Form9_Image1_Click()
{
    if (!m_pictureWindow) {
        m_pictureWindow = std::make_unique<Form3>(windowTitle());
    }
    m_pictureWindow->setTitle(windowTitle()); // perhaps in another language by now
    m_pictureWindow->showPicture(Image1->drawing());
}

void Form9::Form9_Command1_Click()
{
    close();
}

} // namespace orvanta
