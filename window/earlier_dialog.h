// Earlier versions of a document: which there are, what is in them, taking one back.
//
//   VersionList  the versions with date and size    ContentBox  the lines of the one that is chosen
//   TakeButton   takes it                           CloseButton closes the window
#pragma once

#include "core/earlier_versions.h"
#include "model/module1.h"
#include "model/texts.h"
#include "playback/control_rows.h"

#include <QDialog>

#include <optional>
#include <vector>

class QLabel;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace orvanta {

/// A version of one of the documents that are open.
struct VersionOfDocument
{
    QString document;
    EarlierVersion version;
};

/// The packets that a version holds, as if it lay where its document lies. Raises 13, 9 or 6.
[[nodiscard]] std::vector<PlaylistEntry> packetsOfVersion(const VersionOfDocument& version);

/// An ordinary window of the desktop. Modal.
class EarlierDialog : public QDialog
{
    Q_OBJECT

public:
    EarlierDialog(std::vector<VersionOfDocument> versions, TextLanguage language, QWidget* parent);

    QListWidget* VersionList;   // the newest first
    QPlainTextEdit* ContentBox; // the lines of the one that is chosen
    QPushButton* TakeButton;    // takes it
    QPushButton* CloseButton;   // closes the window

    /// The one that was taken.
    [[nodiscard]] std::optional<VersionOfDocument> taken() const;

private:
    [[nodiscard]] ControlRows controls();
    void fill();
    void layOut();
    void showContent();

    std::vector<VersionOfDocument> m_versions;
    TextLanguage m_language;
};

} // namespace orvanta
