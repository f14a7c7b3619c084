#include "companions/exchange/exchange_texts.h"

namespace orvanta {

using namespace Qt::StringLiterals;

QString exchangeText(QStringView control, TextLanguage language)
{
    return interfaceText(u"Exchange", control, language);
}

QString remarkText(const FileRemark& remark, TextLanguage language)
{
    constexpr qsizetype kLongestDetail = 200;
    QStringList parts = {remark.file};
    if (remark.remark.line > 0) {
        parts.append(exchangeText(u"line", language).arg(remark.remark.line));
    }
    parts.append(exchangeText(QStringView(remark.remark.what), language));
    const QString detail = remark.remark.detail.simplified().left(kLongestDetail);
    if (!detail.isEmpty()) {
        parts.append(detail);
    }
    return parts.join(u": "_s);
}

} // namespace orvanta
