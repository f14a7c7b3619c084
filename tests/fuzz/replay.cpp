// Runs one fuzzed rule over files that are there: the corpus and what was found earlier. For builds
// without the engine.

#include "tests/fuzz/fuzzing.h"

#include <QDirIterator>

#include <span>

int main(int count, char** arguments)
{
    int files = 0;
    for (const char* folder : std::span(arguments, static_cast<std::size_t>(count)).subspan(1)) {
        QDirIterator each(QString::fromLocal8Bit(folder), QDir::Files);
        while (each.hasNext()) {
            QFile file(each.next());
            orvanta::fuzz::require(file.open(QIODevice::ReadOnly), "a file can be read");
            std::printf("%s\n", qPrintable(file.fileName()));
            std::fflush(stdout);
            const QByteArray bytes = file.readAll();
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                                   static_cast<std::size_t>(bytes.size()));
            ++files;
        }
    }
    std::printf("%d files\n", files);
    return files > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
