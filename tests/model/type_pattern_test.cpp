#include "core/run_time_error.h"
#include "model/type_pattern.h"
#include "tests/support/settings_folder.h"

#include <gtest/gtest.h>

namespace orvanta {

using namespace Qt::StringLiterals;

TEST(TypePattern, JoinsTheTypes)
{
    struct Row
    {
        const char* rule;
        QByteArray types;
        QString pattern;
    };
    for (const Row& row :
         {Row{"in their order", "num=3\nfile0=avi\nfile1=mpg\nfile2=wav\n", u"*.avi;*.mpg;*.wav"_s},
          Row{"no more than there are", "num=1\nfile0=avi\nfile1=mpg\n", u"*.avi"_s},
          Row{"the first even without types", "num=0\nfile0=avi\n", u"*.avi"_s},
          Row{"an empty one as a star and a dot", "num=2\nfile0=avi\nfile1=\n", u"*.avi;*."_s}}) {
        const SettingsFolder folder("[types]\n" + row.types);
        EXPECT_EQ(typePattern(folder.ini()), row.pattern) << row.rule;
    }
}

TEST(TypePattern, ACountThatIsAbsentOrNoNumberIsATypeMismatch)
{
    for (const QByteArray count : {"", "num=\n", "num=three\n"}) {
        const SettingsFolder folder("[types]\nfile0=avi\n" + count);
        try {
            EXPECT_EQ(typePattern(folder.ini()), u"an error");
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), ErrorNumber::TypeMismatch);
        }
    }
}

} // namespace orvanta
