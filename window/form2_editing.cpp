// The main window's part in editing: the button, the row, what is shown of the document.
#include "window/edit_notice.h"
#include "window/editing_mode.h"
#include "window/editing_row.h"
#include "window/form2_main_window.h"
#include "window/missing_clips.h"
#include "window/playlist_list.h"
#include "window/silence_row.h"
#include "window/skin.h"
#include "window/skin_button.h"
#include "window/waveform_strip.h"

#include <QFileDialog>
#include <QLabel>

namespace orvanta {

void Form2::buildEditing()
{
    const TextLanguage language =
        textLanguage(m_services.module.Language.value(), TextLanguage::Russian);
    Editing = new EditingRow(language, m_surface);
    Notice = new EditNotice(m_surface);
    Strip = new WaveformStrip(language, m_surface);
    Silence = new SilenceRow(language, m_surface);
    for (QWidget* part : {static_cast<QWidget*>(Editing), static_cast<QWidget*>(Silence)}) {
        part->hide(); // before the window takes its first size
    }
    m_document = new QLabel(m_surface);
    m_document->setTextFormat(Qt::PlainText);
    QPalette palette = m_document->palette();
    palette.setColor(QPalette::WindowText, skin::kTextMuted);
    m_document->setPalette(palette);
}

void Form2::connectEditing()
{
    const TextLanguage language =
        textLanguage(m_services.module.Language.value(), TextLanguage::Russian);
    m_editing = new EditingMode(
        EditingPorts{.module = m_services.module,
                     .engine = m_services.engine,
                     .pickers = m_services.pickers,
                     .boundary = m_services.boundary,
                     .language = language,
                     .list = *List1,
                     .row = *Editing,
                     .notice = *Notice,
                     .strip = *Strip,
                     .silences = *Silence,
                     .showTitle = [this](const QString& title) { m_document->setText(title); },
                     .openDocument = [this](const QString& path) { openPacketOrGroup(path); },
                     .frame = m_services.frame},
        this);
    // Not clicked: assistive technology switches the button without a click.
    connect(EditButton, &SkinButton::toggled, this, m_services.boundary([this](bool on) {
        if (on != m_editing->isOn()) {
            carryOut(Command::EditMode);
            EditButton->setChecked(m_editing->isOn()); // nothing is open that could be edited
        }
    }));
    connect(m_editing, &EditingMode::switched, this, [this](bool on) { showEditing(on); });
}

void Form2::connectMissingClips()
{
    const TextLanguage language =
        textLanguage(m_services.module.Language.value(), TextLanguage::Russian);
    const auto askFolder = [this, language] {
        return QFileDialog::getExistingDirectory(this, interfaceText(u"Files", u"folder", language),
                                                 m_services.module.settings().folder());
    };
    m_missingClips = new MissingClips(
        MissingClipsPorts{.module = m_services.module,
                          .list = *List1,
                          .notice = *Notice,
                          .boundary = m_services.boundary,
                          .language = language,
                          .askFolder = m_services.askFolder ? m_services.askFolder : askFolder,
                          .reopen = [this](const QString& path) { openPacketOrGroup(path); }},
        this);
}

void Form2::showEditing(bool on)
{
    EditButton->setChecked(on);
    m_commands->setVisible(!on);
    m_stripRoom->setVisible(on);
    List1->setMinimumHeight(6 * List1->rowHeight());
    List1->setFocus();
}

} // namespace orvanta
