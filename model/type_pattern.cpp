#include "model/type_pattern.h"

#include "core/ini.h"
#include "core/numbers.h"

namespace orvanta {

using namespace Qt::StringLiterals;

static QString fileType(int index, const QString& iniPath)
{
    return u"*."_s + ReadIni(u"types"_s, u"file"_s + QString::number(index), iniPath);
}

QString typePattern(const QString& iniPath)
{
    QString pattern = fileType(0, iniPath);
    const Int16 count = countValue(ReadIni(u"types"_s, u"num"_s, iniPath));
    for (int i = 1; i < count.value(); ++i) {
        pattern += u';' + fileType(i, iniPath);
    }
    return pattern;
}

} // namespace orvanta
