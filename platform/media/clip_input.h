// A clip opened by FFmpeg's libraries for reading alone, as tightly as the player opens it.
#pragma once

#include "core/descriptor.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

struct AVCodecContext;
struct AVFormatContext;
struct AVIOContext;
struct AVPacket;
struct AVStream;

namespace orvanta {

/// Bytes that a clip is read from.
class ByteSource
{
public:
    ByteSource() = default;
    virtual ~ByteSource() = default;
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;

    [[nodiscard]] virtual qint64 size() const = 0;
    /// The number of bytes read, 0 at the end, negative when reading fails. Offset from 0.
    [[nodiscard]] virtual qint64 read(char* to, qint64 size, qint64 offset) = 0;
};

/// Opens the absolute path of a regular file, or a link to one; null for anything else.
[[nodiscard]] std::unique_ptr<ByteSource> fileBytes(const QString& path);
[[nodiscard]] std::unique_ptr<ByteSource> memoryBytes(QByteArray bytes);

/// The file behind a path as it was when it was opened; nothing else is ever read of it.
struct OpenedClip
{
    Descriptor file;
    struct stat status = {};
};
/// Not open for anything but a regular file, or a link to one.
[[nodiscard]] OpenedClip openClip(const QString& path);
[[nodiscard]] std::unique_ptr<ByteSource> fileBytes(OpenedClip clip);

/// Frees what the libraries have made.
struct MediaDeleter
{
    void operator()(AVCodecContext* context) const;
    void operator()(AVFormatContext* context) const;
    void operator()(AVIOContext* context) const;
    void operator()(AVPacket* packet) const;
};

using DecoderPointer = std::unique_ptr<AVCodecContext, MediaDeleter>;
using PacketPointer = std::unique_ptr<AVPacket, MediaDeleter>;

/// An open container. It reads the bytes it is given and opens nothing: neither other files nor
/// addresses, whatever stands in it. Not for two threads at once.
class ClipInput
{
public:
    using Stopped = std::function<bool()>;

    ~ClipInput();
    ClipInput(const ClipInput&) = delete;
    ClipInput& operator=(const ClipInput&) = delete;

    /// name: the file's name without its folder, a hint about its kind. formats: those allowed, by
    /// the libraries' names. stopped: asked often; all ends when it says so. Null when it cannot be
    /// opened; error says why.
    [[nodiscard]] static std::unique_ptr<ClipInput> open(std::unique_ptr<ByteSource> bytes,
                                                         const QString& name, const char* formats,
                                                         Stopped stopped, QString& error);

    [[nodiscard]] AVFormatContext& container() { return *m_container; }
    /// The player's second 0, in the time of the container's packets, seconds.
    [[nodiscard]] double start() const { return m_start; }

    /// Reads as much of each stream as its details need: pixels, profiles, lengths. False when that
    /// fails. Before the first packet.
    [[nodiscard]] bool readDetails();

    /// The next packet of the streams that are not discarded. False at the end.
    [[nodiscard]] bool readPacket(AVPacket& packet);
    /// Whether the bytes could not all be read (the disk, not the file's content).
    [[nodiscard]] bool hasReadingFailed() const { return m_failed; }
    [[nodiscard]] bool isStopped() const { return m_stopped(); }

    /// Passes over the packets of all other streams. By their numbers, from 0.
    void readOnly(const std::function<bool(int)>& isWanted);

private:
    ClipInput(std::unique_ptr<ByteSource> bytes, Stopped stopped);

    static int readBytes(void* self, unsigned char* to, int size);
    static int64_t seekBytes(void* self, int64_t offset, int whence);
    static int askStopped(void* self);
    [[nodiscard]] int openContainer(const QByteArray& name, const char* formats);
    [[nodiscard]] int readStreams();
    [[nodiscard]] int findStreams();

    std::unique_ptr<ByteSource> m_bytes;
    Stopped m_stopped;
    std::unique_ptr<AVIOContext, MediaDeleter> m_io;
    std::unique_ptr<AVFormatContext, MediaDeleter> m_container; // goes before what it reads from
    qint64 m_offset = 0;
    qint64 m_bytesLeft = 0; // of all reading: a file that leads in circles ends
    qint64 m_packetsLeft;
    double m_start = 0;
    bool m_failed = false;
};

/// A decoder for a stream; null when the libraries have none or refuse.
[[nodiscard]] DecoderPointer decoderOf(const AVStream& stream);

/// An error of the libraries in words.
[[nodiscard]] QString mediaErrorText(int error);

} // namespace orvanta
