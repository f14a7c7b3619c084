#include "window/skin.h"

#include "platform/file_types/drawing.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmapCache>

// A static library's resources are dropped by the linker unless somebody asks for them, and the
// macro works only outside of namespaces.
static void loadPictures()
{
    Q_INIT_RESOURCE(window);
}

namespace orvanta::skin {

using namespace Qt::StringLiterals;

static QPixmap rendered(const QString& resource, QSize size, qreal devicePixelRatio)
{
    loadPictures();
    return drawingPixmap(resource, size, devicePixelRatio);
}

// The drawings are white: only their shape counts.
static void tint(QPixmap& pixmap, const QColor& colour)
{
    QPainter painter(&pixmap);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), colour);
}

QFont interfaceFont(int pixelSize, bool bold)
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(pixelSize);
    font.setBold(bold);
    return font;
}

QFont digitsFont(int pixelSize)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(pixelSize);
    return font;
}

QFont listFont()
{
    constexpr int kLargest = 11;
    constexpr int kSmallest = 8;
    QFont font = interfaceFont(kLargest);
    for (int size = kLargest; size > kSmallest && QFontMetrics(font).height() > kRowHeight;) {
        font.setPixelSize(--size);
    }
    return font;
}

QPixmap picture(const QString& name, const QColor& colour, int side, qreal devicePixelRatio)
{
    const QString key = u"orvanta-%1-%2-%3-%4"_s.arg(name, colour.name(QColor::HexArgb))
                            .arg(side)
                            .arg(devicePixelRatio);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = rendered(u":/orvanta/ui/%1.svg"_s.arg(name), {side, side}, devicePixelRatio);
        tint(pixmap, colour);
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

QPixmap artwork(const QString& name, QSize size, qreal devicePixelRatio)
{
    return rendered(u":/orvanta/%1.svg"_s.arg(name), size, devicePixelRatio);
}

QIcon applicationIcon()
{
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
        icon.addPixmap(artwork(u"orvanta"_s, {side, side}, 1));
    }
    return icon;
}

static QString listSheet(const QString& list)
{
    return uR"(
#%1 { background: %sunken; border: 1px solid %line; border-radius: 8px; padding: 6px 4px; }
#%1:focus { border-color: %deep; }
#%1 QScrollBar:vertical { background: transparent; width: 10px; margin: 0; }
#%1 QScrollBar::handle:vertical { background: %line; min-height: 24px; border-radius: 3px;
    margin: 0 2px; }
#%1 QScrollBar::handle:vertical:hover { background: %grip; }
#%1 QScrollBar::add-line, #%1 QScrollBar::sub-line { height: 0; }
#%1 QScrollBar::add-page, #%1 QScrollBar::sub-page { background: transparent; }
)"_s.arg(list);
}

/// With names for the colours.
static QString practiceSheet()
{
    return uR"(
#Panel { background: %raised; border: 1px solid %edge; border-radius: 10px; }
#Panel QLabel { color: %muted; }
#Panel QCheckBox { color: %text; spacing: 8px; }
#Panel QCheckBox::indicator { width: 12px; height: 12px; border: 1px solid %muted;
    border-radius: 3px; background: %sunken; }
#Panel QCheckBox::indicator:checked { background: %accent; border-color: %accent;
    image: url(:/orvanta/ui/check_dark.svg); }
#Panel QCheckBox:focus { color: %accent; }
#Panel QComboBox { background: %sunken; color: %text; border: 1px solid %line;
    border-radius: 6px; padding: 3px 8px; min-height: 18px; }
#Panel QComboBox:hover { border-color: %edge; }
#Panel QComboBox:focus { border-color: %accent; }
#Panel QComboBox:disabled { color: %muted; }
#Panel QComboBox::drop-down { width: 20px; border: none; }
#Panel QComboBox::down-arrow { image: url(:/orvanta/ui/down.svg); width: 12px; height: 12px; }
#Panel QComboBox QAbstractItemView { background: %raised; color: %text;
    border: 1px solid %edge; selection-background-color: %deep; selection-color: %text; }
#NormalButton { background: transparent; border: 1px solid transparent; border-radius: 6px;
    color: %accent; padding: 4px 6px; }
#NormalButton:hover { border-color: %edge; }
#NormalButton:focus { border-color: %accent; }
#NormalButton:disabled { color: %muted; }
#Chips QPushButton { background: %faint; color: %light; border: 1px solid transparent;
    border-radius: 12px; padding: 0 12px; }
#Chips QPushButton:hover { border-color: %deep; }
#Chips QPushButton:focus { border-color: %accent; }
)"_s;
}

/// The same.
static QString editingSheet()
{
    return uR"(
#Editing QPushButton { background: %raised; color: %text; border: 1px solid transparent;
    border-radius: 6px; padding: 0 10px; }
#Editing QPushButton:hover { background: %hover; }
#Editing QPushButton:focus { border-color: %accent; }
#Editing QPushButton:disabled { color: %muted; }
#Editing QPushButton#MarkButton { background: %accent; color: %surface; }
#Editing QPushButton#MarkButton:focus { border-color: %text; }
#Editing QPushButton#MarkButton:disabled { background: %faint; color: %muted; }
#Editing #UpButton, #Editing #DownButton, #Editing #UndoButton, #Editing #RedoButton,
#Editing #MoreButton { padding: 0; }
#Notice { background: %faint; border-radius: 8px; margin-bottom: 8px; }
#Notice QLabel { color: %text; }
#Notice QPushButton { background: transparent; color: %light; border: 1px solid transparent;
    border-radius: 6px; padding: 4px 10px; }
#Notice QPushButton:hover { border-color: %deep; }
#Notice QPushButton:focus { border-color: %accent; }
#Silence QLabel { color: %muted; }
#Silence QSpinBox, #Silence QDoubleSpinBox { background: %sunken; color: %text;
    border: 1px solid %line; border-radius: 6px; padding: 3px 6px; }
#Silence QAbstractSpinBox::up-button, #Silence QAbstractSpinBox::down-button {
    subcontrol-origin: padding; width: 18px; border: none; background: transparent; }
#Silence QAbstractSpinBox::up-button { subcontrol-position: top right; }
#Silence QAbstractSpinBox::down-button { subcontrol-position: bottom right; }
#Silence QAbstractSpinBox::up-arrow { image: url(:/orvanta/ui/up.svg); width: 10px; height: 10px; }
#Silence QAbstractSpinBox::down-arrow { image: url(:/orvanta/ui/down.svg); width: 10px; height: 10px; }
#Silence QSpinBox:focus, #Silence QDoubleSpinBox:focus { border-color: %accent; }
#Silence QPushButton { background: %raised; color: %text; border: 1px solid transparent;
    border-radius: 6px; padding: 5px 10px; }
#Silence QPushButton:focus { border-color: %accent; }
#Silence QPushButton:disabled { color: %muted; }
#LineBox { background: %sunken; color: %text; border: 1px solid %accent; border-radius: 3px;
    padding: 0 2px; selection-background-color: %deep; selection-color: %text; }
)"_s;
}

// For the window's surface alone. A sheet on the window would reach the dialogs that it opens, tool
// tips and all, and those follow the desktop.
QString styleSheet()
{
    static const QString kSheet = QString(listSheet(u"List1"_s) + listSheet(u"StartPage"_s) + uR"(
#Text2 { color: %text; }
#Text1, #Text2 { background: %raised; border: 1px solid %line;
    selection-background-color: %deep; selection-color: %text; }
#Text1 { border-radius: 6px; padding: 0 10px; }
#Text2 { border-radius: 8px; padding: 0 14px; }
#Text1:hover, #Text2:hover { border-color: %edge; }
#Text1:focus, #Text2:focus { border-color: %deep; }
#Text1[missed="true"] { background: %missed; border-color: %warning; }
#create, #tools, #help, #ai { background: %raised; color: %text; border: 1px solid %edge;
    padding: 4px; }
#create::item, #tools::item, #help::item, #ai::item { padding: 6px 28px 6px 14px;
    border-radius: 4px; }
#create::item:selected, #tools::item:selected, #help::item:selected, #ai::item:selected {
    background: %deep; }
)"_s + practiceSheet() + editingSheet() + uR"(
QToolTip { background: %raised; color: %text; border: 1px solid %edge; padding: 3px; }
)"_s)
                                      .replace(u"%raised"_s, kRaised.name())
                                      .replace(u"%sunken"_s, kSunken.name())
                                      .replace(u"%surface"_s, kSurface.name())
                                      .replace(u"%hover"_s, kRaisedHover.name())
                                      .replace(u"%text"_s, kText.name())
                                      .replace(u"%missed"_s, kMissed.name())
                                      .replace(u"%warning"_s, kWarning.name())
                                      .replace(u"%line"_s, kLine.name())
                                      .replace(u"%edge"_s, kEdge.name())
                                      .replace(u"%grip"_s, kGrip.name())
                                      .replace(u"%muted"_s, kTextMuted.name())
                                      .replace(u"%accent"_s, kAccent.name())
                                      .replace(u"%light"_s, kAccentHover.name())
                                      .replace(u"%faint"_s, kAccentFaint.name())
                                      .replace(u"%deep"_s, kAccentDeep.name());
    return kSheet;
}

QString commandMenuSheet()
{
    static const QString kSheet = uR"(
QMenu { background: %raised; color: %text; border: 1px solid %edge; padding: 4px; }
QMenu::item { padding: 5px 14px 5px 8px; border-radius: 4px; }
QMenu::item:selected { background: %deep; }
QMenu::item:disabled { color: %muted; background: transparent; }
QMenu::separator { height: 1px; background: %edge; margin: 4px 8px; }
QMenu::indicator { width: 12px; height: 12px; left: 5px; }
)"_s.replace(u"%raised"_s, kRaised.name())
                                      .replace(u"%text"_s, kText.name())
                                      .replace(u"%muted"_s, kTextMuted.name())
                                      .replace(u"%edge"_s, kEdge.name())
                                      .replace(u"%deep"_s, kAccentDeep.name());
    return kSheet;
}

} // namespace orvanta::skin
