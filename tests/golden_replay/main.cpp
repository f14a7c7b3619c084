// golden_replay ini|numbers FILE: replays a file of reference cases, prints the name of each
// failing one and the sums. Exit status 0 when all pass, 1 when some fail, 2 when nothing ran.
#include "tests/golden_replay/replay.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <clocale>
#include <cstdio>
#include <optional>

using namespace Qt::StringLiterals;
using orvanta::replay::Outcome;
using Replay = Outcome (*)(const QJsonObject&, const QString&);

constexpr int kSomeFailed = 1;
constexpr int kNothingRan = 2;

static Replay replayNamed(const QString& kind)
{
    if (kind == u"ini") {
        return orvanta::replay::replayIni;
    }
    return kind == u"numbers" ? orvanta::replay::replayNumber : nullptr;
}

static std::optional<QJsonArray> casesIn(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll());
    return document.isArray() ? std::optional(document.array()) : std::nullopt;
}

static int replayAll(const QJsonArray& cases, Replay replay, const QString& folder)
{
    int failed = 0;
    for (const QJsonValue& testCase : cases) {
        const Outcome outcome = replay(testCase.toObject(), folder);
        if (!outcome.passed) {
            std::printf("%s\n", qUtf8Printable(outcome.name));
            ++failed;
        }
    }
    std::printf("%d passed, %d failed\n", static_cast<int>(cases.size()) - failed, failed);
    return failed > 0 ? kSomeFailed : 0;
}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    const QStringList arguments = QCoreApplication::arguments();
    const Replay replay = arguments.size() == 3 ? replayNamed(arguments[1]) : nullptr;
    if (replay == nullptr) {
        std::fprintf(stderr, "usage: golden_replay ini|numbers FILE\n");
        return kNothingRan;
    }
    const std::optional<QJsonArray> cases = casesIn(arguments[2]);
    const QTemporaryDir folder;
    if (!cases || !folder.isValid()) {
        std::fprintf(stderr, "golden_replay: no list of cases in %s\n",
                     qUtf8Printable(arguments[2]));
        return kNothingRan;
    }
    return replayAll(*cases, replay, folder.path());
}
