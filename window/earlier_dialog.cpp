#include "window/earlier_dialog.h"

#include "core/error_boundary.h"
#include "core/group_file.h"
#include "core/packet_file.h"
#include "core/paths.h"
#include "model/editing/lesson_saving.h"
#include "platform/process/media_locator.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

std::vector<PlaylistEntry> packetsOfVersion(const VersionOfDocument& version)
{
    const QString folder = folderOfPath(version.document);
    std::vector<PlaylistEntry> packets;
    if (isGroupPath(version.document)) {
        const auto find = [&](const QString& member) { return locateFile(member, folder); };
        readGroupInto(packets, version.version.file, find);
        for (PlaylistEntry& packet : packets) {
            packet.PictureFolder = folder;
        }
        return packets;
    }
    PlaylistEntry packet;
    readPacketInto(packet, version.version.file);
    packet.Folder = folder;
    packets.push_back(std::move(packet));
    return packets;
}

EarlierDialog::EarlierDialog(std::vector<VersionOfDocument> versions, TextLanguage language,
                             QWidget* parent)
    : QDialog(parent),
      VersionList(new QListWidget(this)),
      ContentBox(new QPlainTextEdit(this)),
      TakeButton(new QPushButton(this)),
      CloseButton(new QPushButton(this)),
      m_versions(std::move(versions)),
      m_language(language)
{
    nameControls(controls());
    applyTexts(controls(), language);
    ContentBox->setReadOnly(true);
    ContentBox->setTabChangesFocus(true);
    layOut();
    connect(VersionList, &QListWidget::currentRowChanged, this, [this] { showContent(); });
    connect(VersionList, &QListWidget::itemActivated, TakeButton, &QPushButton::click);
    connect(TakeButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(CloseButton, &QPushButton::clicked, this, &QDialog::reject);
    fill();
    orderTabs(controls());
}

ControlRows EarlierDialog::controls()
{
    return {{this, u"Earlier"},
            {VersionList, u"VersionList"},
            {ContentBox, u"ContentBox"},
            {TakeButton, u"TakeButton"},
            {CloseButton, u"CloseButton"}};
}

void EarlierDialog::layOut()
{
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(TakeButton);
    buttons->addWidget(CloseButton);
    auto* both = new QHBoxLayout;
    both->addWidget(VersionList, 1);
    both->addWidget(ContentBox, 1);
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(both, 1);
    rows->addLayout(buttons);
    TakeButton->setDefault(true);
    resize(640, 360);
}

void EarlierDialog::fill()
{
    const QLocale locale;
    for (const VersionOfDocument& version : m_versions) {
        VersionList->addItem(u"%1 · %2 · %3"_s.arg(
            locale.toString(version.version.kept, QLocale::ShortFormat),
            fileNameOfPath(version.document), locale.formattedDataSize(version.version.size)));
    }
    TakeButton->setEnabled(!m_versions.empty());
    if (m_versions.empty()) {
        ContentBox->setPlainText(interfaceText(u"Earlier", u"ContentBox.none", m_language));
    } else {
        VersionList->setCurrentRow(0);
    }
}

static QString linesOf(const std::vector<PlaylistEntry>& packets)
{
    QString lines;
    for (const PlaylistEntry& packet : packets) {
        if (!packet.Title.isEmpty()) {
            lines += packet.Title + u'\n';
        }
        for (const ClipEntry& line : packet.Clips) {
            lines += (packet.HasBrakes ? line.Time + u"  "_s : u"  "_s) + line.Text + u'\n';
        }
    }
    return lines;
}

void EarlierDialog::showContent()
{
    const int row = VersionList->currentRow();
    QString content = interfaceText(u"Earlier", u"ContentBox.spoilt", m_language);
    const bool readable =
        row >= 0 && resumeNext("reading an earlier version", [&] {
            content = linesOf(packetsOfVersion(m_versions[static_cast<std::size_t>(row)]));
        });
    ContentBox->setPlainText(content);
    TakeButton->setEnabled(readable);
}

std::optional<VersionOfDocument> EarlierDialog::taken() const
{
    const int row = VersionList->currentRow();
    return result() == Accepted && row >= 0
               ? std::optional(m_versions[static_cast<std::size_t>(row)])
               : std::nullopt;
}

} // namespace orvanta
