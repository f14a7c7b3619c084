#include "companions/exchange/text_lines.h"

namespace orvanta {

static qsizetype lineEndFrom(QStringView text, qsizetype at)
{
    while (at < text.size() && text[at] != u'\n' && text[at] != u'\r') {
        ++at;
    }
    return at;
}

std::vector<QStringView> linesOfText(QStringView text)
{
    std::vector<QStringView> lines;
    qsizetype begin = text.startsWith(QChar::ByteOrderMark) ? 1 : 0;
    while (begin < text.size()) {
        const qsizetype end = lineEndFrom(text, begin);
        lines.push_back(text.sliced(begin, end - begin));
        const bool isPair = text.sliced(end).startsWith(u"\r\n");
        begin = end + (isPair ? 2 : 1);
    }
    return lines;
}

} // namespace orvanta
