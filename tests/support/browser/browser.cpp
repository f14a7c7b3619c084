#include "tests/support/browser/browser.h"

#include <QJsonArray>
#include <QUrl>

namespace orvanta::test {

using namespace Qt::StringLiterals;

QPoint Browser::placeOf(const QString& selector)
{
    const QJsonArray place =
        evaluate(u"(() => { const r = document.querySelector('%1').getBoundingClientRect();"
                 "return [r.x + r.width / 2, r.y + r.height / 2]; })()"_s.arg(selector))
            .toArray();
    return {qRound(place.at(0).toDouble()), qRound(place.at(1).toDouble())};
}

QString addressOfFile(const QString& path)
{
    return QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded());
}

} // namespace orvanta::test
