// A box as a ZIP archive: stored, since clips do not get smaller.

#include "companions/cdcreate/box_archive.h"
#include "companions/cdcreate/box_forms.h"
#include "companions/cdcreate/file_copy.h"

#include <QDateTime>
#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <vector>

namespace orvanta {

namespace {

class ZipWriter
{
public:
    explicit ZipWriter(const QString& path)
        : m_path(path),
          m_archive(archive_write_new())
    {
        archive_write_set_format_zip(m_archive.get());
        archive_write_set_options(m_archive.get(), "zip:compression=store");
        archive_write_set_bytes_in_last_block(m_archive.get(), 1); // no padding
        check(archive_write_open_filename(m_archive.get(), QFile::encodeName(path).constData()));
    }

    void begin(const QString& name, qint64 size, qint64 seconds)
    {
        const EntryPointer entry(archive_entry_new());
        archive_entry_set_pathname(entry.get(), name.toUtf8().constData());
        archive_entry_set_filetype(entry.get(), AE_IFREG);
        archive_entry_set_perm(entry.get(), kFileMode);
        archive_entry_set_size(entry.get(), size);
        archive_entry_set_mtime(entry.get(), seconds, 0);
        check(archive_write_header(m_archive.get(), entry.get()));
    }
    void add(const char* bytes, qsizetype size)
    {
        const la_ssize_t count =
            archive_write_data(m_archive.get(), bytes, static_cast<std::size_t>(size));
        check(count == size ? ARCHIVE_OK : ARCHIVE_FATAL);
    }
    void finish() { check(archive_write_close(m_archive.get())); }

private:
    static constexpr __LA_MODE_T kFileMode = 0644;

    void check(int result) const
    {
        if (result < ARCHIVE_WARN) {
            errno = archive_errno(m_archive.get());
            throw targetFailure(m_path);
        }
    }

    QString m_path;
    WriterPointer m_archive;
};

} // namespace

static void addFile(ZipWriter& zip, const BoxFile& file, std::vector<char>& buffer, BoxWork& work)
{
    const Descriptor source = openSource(file);
    const auto status = source.status();
    zip.begin(file.name, file.size, status ? status->st_mtim.tv_sec : 0);
    for (qint64 done = 0; done < file.size;) {
        const qint64 left = std::min<qint64>(kCopyChunk, file.size - done);
        const qsizetype count = readAt(source, file.source, done, buffer.data(), left);
        if (count == 0) { // shorter meanwhile
            throw BoxFailure(BoxProblem::Unreadable, file.source);
        }
        zip.add(buffer.data(), count);
        work.add(count);
        done += count;
    }
}

void writeZip(const BoxContents& contents, const BoxPlace& place, BoxWork& work)
{
    ZipWriter zip(place.box());
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    for (const BoxDocument& document : contents.documents) {
        zip.begin(document.name, document.content.size(), now);
        zip.add(document.content.constData(), document.content.size());
    }
    work.begin(BoxStep::Writing, contents.fileBytes());
    std::vector<char> buffer(kCopyChunk);
    for (const BoxFile& file : contents.files) {
        addFile(zip, file, buffer, work);
    }
    zip.finish();
    place.sync();
    checkArchive(contents, place.box(), work);
}

} // namespace orvanta
