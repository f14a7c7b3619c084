#include "core/foreign_text.h"

#include "core/ini_encoding.h"

#include <QStringDecoder>

namespace orvanta {

using namespace Qt::StringLiterals;

bool isForeignText(const QByteArray& bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(bytes);
    return utf8.hasError() || text.contains(QChar::Null);
}

// In Cyrillic words the bytes above 0xc0 stand side by side; other letters with marks stand alone.
static bool looksCyrillic(QByteArrayView bytes)
{
    const auto isHigh = [](char byte) { return static_cast<unsigned char>(byte) >= 0xc0; };
    qsizetype high = 0;
    qsizetype beside = 0;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        high += isHigh(bytes[i]) ? 1 : 0;
        beside += i > 0 && isHigh(bytes[i]) && isHigh(bytes[i - 1]) ? 1 : 0;
    }
    return beside * 2 > high;
}

static QString oldText(const QByteArray& bytes, const std::shared_ptr<const CodePage>& page)
{
    const std::shared_ptr<const CodePage> cyrillic =
        looksCyrillic(bytes) ? CodePage::named(u"windows-1251"_s) : nullptr;
    const std::shared_ptr<const CodePage>& used = cyrillic ? cyrillic : page;
    return used ? used->decode(bytes) : QString::fromLatin1(bytes);
}

QString foreignText(const QByteArray& bytes, const std::shared_ptr<const CodePage>& page)
{
    if (const auto marked = QStringConverter::encodingForData(bytes)) {
        return QStringDecoder(*marked)(bytes);
    }
    return isForeignText(bytes) ? oldText(bytes, page) : QString::fromUtf8(bytes);
}

} // namespace orvanta
