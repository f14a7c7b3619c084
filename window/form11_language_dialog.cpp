#include "window/form11_language_dialog.h"

#include "model/settings.h"
#include "window/picture_sign.h"
#include "window/skin.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace orvanta {

using namespace Qt::StringLiterals;

static PictureSign* languageBadge(const QString& artwork, QWidget* parent)
{
    static constexpr QSize kSize(48, 48);
    return new PictureSign([artwork](qreal ratio) { return skin::artwork(artwork, kSize, ratio); },
                           kSize, parent);
}

static QHBoxLayout* choiceRow(QWidget* picture, QWidget* option)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(2 * skin::kGrid);
    row->addWidget(picture);
    row->addWidget(option, 1);
    return row;
}

Form11::Form11(QString iniPath)
    : Option1(new QRadioButton(this)),
      Option2(new QRadioButton(this)),
      Image1(languageBadge(u"language_en"_s, this)),
      Image2(languageBadge(u"language_ru"_s, this)),
      Command1(new QPushButton(this)),
      m_iniPath(std::move(iniPath))
{
    setWindowIcon(skin::applicationIcon());
    setModal(true);
    nameControls(controls());
    layOut();
    orderTabs(controls());
    Option1->setChecked(true);
    Option1->setFocus();
    Command1->setDefault(true);
    applyTexts(controls(), TextLanguage::English);
    connectHandlers();
}

ControlRows Form11::controls()
{
    return {
        {this, u"Form11"},   {Image1, u"Image1"},   {Option1, u"Option1"},
        {Image2, u"Image2"}, {Option2, u"Option2"}, {Command1, u"Command1"},
    };
}

void Form11::layOut()
{
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(3 * skin::kGrid, 3 * skin::kGrid, 3 * skin::kGrid, 2 * skin::kGrid);
    rows->setSpacing(2 * skin::kGrid);
    rows->addLayout(choiceRow(Image1, Option1));
    rows->addLayout(choiceRow(Image2, Option2));
    rows->addSpacing(skin::kGrid);
    rows->addWidget(Command1, 0, Qt::AlignRight);
    for (QRadioButton* option : {Option1, Option2}) {
        QFont font = option->font();
        font.setPointSizeF(font.pointSizeF() * 1.25);
        option->setFont(font);
        option->setMinimumSize(232, 48);
    }
    Command1->setMinimumSize(120, skin::kButtonSide);
    rows->setSizeConstraint(QLayout::SetFixedSize);
}

void Form11::connectHandlers()
{
    // Toggled, not clicked: arrow keys choose too.
    connect(Option1, &QRadioButton::toggled, this,
            [this](bool on) { on ? Form11_Option1_Click() : Form11_Option2_Click(); });
    connect(Command1, &QPushButton::clicked, this, [this] { Form11_Command1_Click(); });
}

void Form11::Form11_Option1_Click()
{
    applyTexts(controls(), TextLanguage::English);
}

void Form11::Form11_Option2_Click()
{
    applyTexts(controls(), TextLanguage::Russian);
}

void Form11::Form11_Command1_Click()
{
    Settings(m_iniPath).setLanguage(Option1->isChecked() ? TextLanguage::English
                                                         : TextLanguage::Russian);
    accept();
}

} // namespace orvanta
