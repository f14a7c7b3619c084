// Reads an image or a ZIP back.

#include "companions/cdcreate/box_archive.h"
#include "companions/cdcreate/box_forms.h"
#include "companions/cdcreate/file_copy.h"

#include <QFile>
#include <QHash>

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <vector>

namespace orvanta {

namespace {

class ArchiveCheck
{
public:
    ArchiveCheck(const BoxContents& contents, const QString& archive, BoxWork& work)
        : m_path(archive),
          m_work(work)
    {
        for (const BoxFile& file : contents.files) {
            m_files.insert(file.name, &file);
        }
        for (const BoxDocument& document : contents.documents) {
            m_documents.insert(document.name, &document);
        }
    }

    void run()
    {
        open();
        archive_entry* entry = nullptr;
        int result = ARCHIVE_OK;
        while ((result = archive_read_next_header(m_archive.get(), &entry)) >= ARCHIVE_WARN &&
               result != ARCHIVE_EOF) {
            if (archive_entry_filetype(entry) != AE_IFDIR) {
                compare(*entry);
            }
        }
        if (result != ARCHIVE_EOF || !m_files.isEmpty() || !m_documents.isEmpty()) {
            fail();
        }
    }

private:
    [[noreturn]] void fail() const { throw BoxFailure(BoxProblem::Different, m_path); }

    /// A link instead of a file: what it led to has vanished.
    [[noreturn]] void failFor(const QString& name) const
    {
        const BoxFile* const file = m_files.value(name);
        throw file != nullptr ? BoxFailure(BoxProblem::Unreadable, file->source)
                              : BoxFailure(BoxProblem::Different, m_path);
    }

    void open()
    {
        constexpr std::size_t kBlock = 1 << 18;
        archive_read_support_format_iso9660(m_archive.get());
        archive_read_support_format_zip(m_archive.get());
        const QByteArray path = QFile::encodeName(m_path);
        if (archive_read_open_filename(m_archive.get(), path.constData(), kBlock) != ARCHIVE_OK) {
            fail();
        }
    }

    void compare(archive_entry& entry)
    {
        const QString name = QString::fromUtf8(archive_entry_pathname(&entry));
        if (archive_entry_filetype(&entry) != AE_IFREG) {
            failFor(name);
        } else if (const BoxFile* const file = m_files.take(name)) {
            compareFile(*file);
        } else if (const BoxDocument* const document = m_documents.take(name)) {
            compareDocument(*document);
        } else {
            fail();
        }
    }

    /// The next block of the entry, its bytes and where they belong; false at its end.
    [[nodiscard]] bool next(QByteArrayView& block, qint64& offset) const
    {
        const void* bytes = nullptr;
        std::size_t size = 0;
        la_int64_t at = 0;
        const int result = archive_read_data_block(m_archive.get(), &bytes, &size, &at);
        if (result < ARCHIVE_WARN) {
            fail();
        }
        block = QByteArrayView(static_cast<const char*>(bytes), static_cast<qsizetype>(size));
        offset = at;
        return result != ARCHIVE_EOF;
    }

    void compareFile(const BoxFile& file)
    {
        const Descriptor source = openSource(file);
        qint64 done = 0;
        QByteArrayView block;
        for (qint64 offset = 0; next(block, offset); done += block.size()) {
            if (offset != done) {
                fail();
            }
            m_buffer.resize(static_cast<std::size_t>(block.size()));
            const qsizetype count =
                readAt(source, file.source, done, m_buffer.data(), block.size());
            if (QByteArrayView(m_buffer.data(), count) != block) {
                fail();
            }
            m_work.add(count);
        }
        if (done != file.size) {
            fail();
        }
    }

    void compareDocument(const BoxDocument& document)
    {
        QByteArray content;
        QByteArrayView block;
        for (qint64 offset = 0; next(block, offset);) {
            content.append(block);
        }
        if (content != document.content) {
            fail();
        }
    }

    QString m_path;
    BoxWork& m_work;
    ReaderPointer m_archive{archive_read_new()};
    QHash<QString, const BoxFile*> m_files; // not met as yet
    QHash<QString, const BoxDocument*> m_documents;
    std::vector<char> m_buffer;
};

} // namespace

void checkArchive(const BoxContents& contents, const QString& archive, BoxWork& work)
{
    work.begin(BoxStep::Checking, contents.fileBytes());
    if (!isOnOneDisk(contents, archive)) {
        const Descriptor file = Descriptor::open(QFile::encodeName(archive), O_RDONLY);
        ::posix_fadvise(file.number(), 0, 0, POSIX_FADV_DONTNEED);
    }
    ArchiveCheck(contents, archive, work).run();
}

} // namespace orvanta
