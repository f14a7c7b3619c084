// Writes a packet or group file key by key into a sibling that replaces the target when finished.
#pragma once

#include <QString>

#include <memory>

namespace orvanta {

/// The writers' calls stay key by key; the document appears whole. A kill or a power cut leaves
/// the earlier document. A failing step ends the writing: an earlier document stays as it was;
/// where there was none, what was written so far stays.
class DocumentWriter
{
public:
    /// What becomes of the document that is replaced.
    enum class Earlier
    {
        Kept, // as a version
        Gone,
    };
    explicit DocumentWriter(const QString& target, Earlier earlier = Earlier::Kept);
    ~DocumentWriter();
    DocumentWriter(const DocumentWriter&) = delete;
    DocumentWriter& operator=(const DocumentWriter&) = delete;

    /// Raises 75 when the value cannot be written.
    void write(const QString& section, const QString& key, const QString& value);
    /// Replaces the target, synced. Raises 75 when that fails.
    void finish();

private:
    struct Private;
    std::unique_ptr<Private> m_state;
};

} // namespace orvanta
