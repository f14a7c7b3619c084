#include "core/document_writer.h"

#include "core/earlier_versions.h"
#include "core/ini_document.h"
#include "core/log.h"
#include "core/run_time_error.h"
#include "core/sibling_file.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <unistd.h>
#include <utility>

namespace orvanta {

using Change = IniDocument::Change;

struct DocumentWriter::Private
{
    QByteArray target; // symbolic links followed
    bool keepsEarlier = true;
    std::optional<struct stat> earlier;
    std::optional<SiblingFile> sibling; // none before the first write and after the end
    bool isInPlace = false;             // the folder takes no sibling: the document waits in memory
    bool hasEnded = false;
    IniDocument document;

    void open();
    void write(const QString& section, const QString& key, const QString& value);
    [[nodiscard]] bool store(Change change, qsizetype sizeBefore) const;
    void replaceEarlier();
    void writeInPlace();
    void abandon();
    [[noreturn]] void fail();
};

/// Where there was no document, what was written so far stays.
void DocumentWriter::Private::abandon()
{
    if (!sibling) {
        return;
    }
    if (earlier || !sibling->replaceTarget()) {
        sibling->remove();
    }
    sibling.reset();
}

void DocumentWriter::Private::fail()
{
    qCInfo(logErrors, "cannot write %s: %s", target.constData(), strerror(errno));
    hasEnded = true;
    isInPlace = false;
    abandon();
    throw RuntimeError(ErrorNumber::PathFileAccessError);
}

/// Whether a folder takes no new files, whatever room there is.
static bool isRefusal(int error)
{
    return error == EACCES || error == EPERM || error == EROFS;
}

void DocumentWriter::Private::open()
{
    if (sibling || isInPlace) {
        return;
    }
    if (hasEnded) {
        errno = EBADF;
        fail();
    }
    earlier = statusOf(target);
    if (earlier && access(target.constData(), W_OK) != 0) { // the user protected it
        fail();
    }
    sibling = SiblingFile::create(target);
    if (!sibling && earlier && keepsEarlier && isRefusal(errno)) {
        isInPlace = true;
        return;
    }
    if (!sibling) {
        fail();
    }
    if (earlier) {
        sibling->takeOwnership(*earlier);
    }
}

void DocumentWriter::Private::write(const QString& section, const QString& key,
                                    const QString& value)
{
    open();
    const qsizetype size = document.fileBytes().size();
    errno = EINVAL;
    if (!IniDocument::holdsKey(key) || !store(document.set(section, key, value), size)) {
        fail();
    }
}

/// The sibling always holds what was written so far.
bool DocumentWriter::Private::store(Change change, qsizetype sizeBefore) const
{
    if (isInPlace) {
        return true;
    }
    const QByteArrayView bytes = document.fileBytes();
    switch (change) {
    case Change::None:
        return true;
    case Change::Appended:
        return sibling->writeAt(sizeBefore, bytes.sliced(sizeBefore));
    case Change::Rewritten:
        return sibling->writeAt(0, bytes) && sibling->cutAt(bytes.size());
    }
    return false;
}

/// Writes over the file's bytes; puts the former ones back where that fails halfway.
static bool writeOver(const QByteArray& path, QByteArrayView bytes)
{
    const Descriptor file = Descriptor::open(path, O_RDWR);
    const std::optional<QByteArray> former =
        file.isOpen() ? file.readAll() : std::optional<QByteArray>();
    if (!former) {
        return false;
    }
    if (file.writeAt(0, bytes) && ftruncate(file.number(), bytes.size()) == 0 &&
        fsync(file.number()) == 0) {
        return true;
    }
    const int reason = errno;
    if (!file.writeAt(0, *former) || ftruncate(file.number(), former->size()) != 0) {
        qCInfo(logErrors, "%s is damaged; its earlier version is kept", path.constData());
    }
    errno = reason;
    return false;
}

/// Only over what lies among the earlier versions: a cut of power now would lose it.
void DocumentWriter::Private::writeInPlace()
{
    errno = EACCES;
    if (!keepEarlierVersion(target) || !writeOver(target, document.fileBytes())) {
        fail();
    }
    isInPlace = false;
    hasEnded = true;
}

void DocumentWriter::Private::replaceEarlier()
{
    if (isInPlace) {
        return writeInPlace();
    }
    if (!sibling->sync()) {
        fail();
    }
    if (earlier && keepsEarlier) {
        keepEarlierVersion(target);
    }
    if (!sibling->replaceTarget()) {
        fail();
    }
    sibling->syncFolder();
    sibling.reset();
    hasEnded = true;
}

DocumentWriter::DocumentWriter(const QString& target, Earlier earlier)
    : m_state(std::make_unique<Private>())
{
    m_state->keepsEarlier = earlier == Earlier::Kept;
    m_state->target = realPath(QFile::encodeName(target));
}

DocumentWriter::~DocumentWriter()
{
    m_state->abandon();
}

void DocumentWriter::write(const QString& section, const QString& key, const QString& value)
{
    m_state->write(section, key, value);
}

void DocumentWriter::finish()
{
    m_state->open();
    m_state->replaceEarlier();
}

} // namespace orvanta
