#include <QApplication>

#include <clocale>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // Also for the run that only lists the tests, which gets no environment of its own.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
