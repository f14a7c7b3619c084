// Lets every call that writes fail once, and from then on, in all the ways in which disks fail, and
// looks what is left: each step of the work done, or not begun. Where a fault is none that a
// program must notice (a signal, a short writing, no locks) all of it is done.

#include "companions/cdcreate/box_work.h"
#include "core/run_time_error.h"
#include "tests/kill/scenario.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <array>
#include <cerrno>
#include <cstdio>
#include <set>

namespace orvanta::kill {

using namespace Qt::StringLiterals;

namespace {

struct Fault
{
    const char* call;
    int error;
    const char* name;
    bool isPassedOver; // once, the work is done all the same
};

constexpr std::array kFaults = {
    Fault{"write", ENOSPC, "ENOSPC", false},  Fault{"write", EIO, "EIO", false},
    Fault{"write", EINTR, "EINTR", true},     Fault{"short", 0, "short", true},
    Fault{"sync", EIO, "EIO", false},         Fault{"rename", EIO, "EIO", false},
    Fault{"rename", ENOSPC, "ENOSPC", false}, Fault{"lock", ENOLCK, "ENOLCK", true},
    Fault{"lock", EINTR, "EINTR", true},      Fault{"make", ENOSPC, "ENOSPC", false},
    Fault{"make", EINTR, "EINTR", true},      Fault{"truncate", EIO, "EIO", false},
    Fault{"folder", ENOSPC, "ENOSPC", false}, Fault{"link", EIO, "EIO", false},
};

class FaultyDisk
{
public:
    FaultyDisk(Scenario scenario, QString folder, int number)
        : m_scenario(std::move(scenario)),
          m_folder(std::move(folder)),
          m_number(number)
    {
        noteStates();
    }

    int run()
    {
        for (const Fault& fault : kFaults) {
            for (const bool stays : {false, true}) {
                if (!(stays && fault.error == EINTR)) { // signals do not come for ever
                    runAll(fault, stays);
                }
            }
        }
        std::printf("%-10s %5d faults, %d wrong\n", m_scenario.name, m_faults, m_wrong);
        std::fflush(stdout);
        return m_wrong;
    }

private:
    /// Any of the steps may be the one that fails.
    void noteStates()
    {
        for (unsigned chosen = 0; chosen < 1U << m_scenario.steps.size(); ++chosen) {
            m_scenario.prepare();
            for (std::size_t i = 0; i < m_scenario.steps.size(); ++i) {
                if ((chosen >> i & 1U) != 0) {
                    m_scenario.steps[i]();
                }
            }
            m_done = m_scenario.observe();
            m_states.insert(m_done);
        }
    }

    void runAll(const Fault& fault, bool stays)
    {
        constexpr int kMost = 200;
        bool isHit = true;
        for (int at = 1; isHit && at <= kMost; ++at) {
            m_scenario.prepare();
            isHit = runOnce(fault, at, stays);
            m_faults += isHit ? 1 : 0;
            check(fault, at, stays);
        }
    }

    bool runOnce(const Fault& fault, int at, bool stays)
    {
        const QString hit = m_folder + u"/hit"_s;
        QFile::remove(hit);
        QProcess child;
        auto variables = QProcessEnvironment::systemEnvironment();
        variables.insert(u"LD_PRELOAD"_s,
                         QCoreApplication::applicationDirPath() + u"/libfault_shim.so"_s);
        variables.insert(u"FAULT_CALL"_s, QLatin1String(fault.call));
        variables.insert(u"FAULT_ERRNO"_s, QString::number(fault.error));
        variables.insert(u"FAULT_AT"_s, QString::number(at));
        variables.insert(u"FAULT_STAYS"_s, stays ? u"1"_s : u"0"_s);
        variables.insert(u"FAULT_BELOW"_s, m_folder + u"/rooms/"_s);
        variables.insert(u"FAULT_HIT"_s, hit);
        child.setProcessEnvironment(variables);
        child.start(QCoreApplication::applicationFilePath(),
                    {u"--work"_s, m_folder, QString::number(m_number)});
        constexpr int kLongest = 60000;
        if (!child.waitForFinished(kLongest) || child.exitStatus() != QProcess::NormalExit ||
            child.exitCode() != 0) {
            complain(fault, at, stays, "the work hangs or crashes");
            std::printf("%s\n", child.readAllStandardError().constData());
        }
        return QFile::exists(hit);
    }

    void check(const Fault& fault, int at, bool stays)
    {
        const QByteArray state = m_scenario.observe();
        if (!m_states.contains(state)) {
            complain(fault, at, stays, "half of something is there");
        } else if (fault.isPassedOver && state != m_done) {
            complain(fault, at, stays, "something was given up without need");
        }
    }

    void complain(const Fault& fault, int at, bool stays, const char* what)
    {
        ++m_wrong;
        std::printf("%s, %s %s at call %d%s: %s\n", m_scenario.name, fault.call, fault.name, at,
                    stays ? " and all later ones" : "", what);
    }

    Scenario m_scenario;
    QString m_folder;
    int m_number;
    std::set<QByteArray> m_states;
    QByteArray m_done;
    int m_faults = 0;
    int m_wrong = 0;
};

} // namespace

/// The program passes over a step that fails, and goes on with the next.
static void doWork(const Scenario& scenario)
{
    for (const Work& step : scenario.steps) {
        try {
            step();
        } catch (const RuntimeError& error) {
            std::fprintf(stderr, "%s\n", error.what());
        } catch (const BoxFailure&) {
            std::fprintf(stderr, "no box\n");
        }
    }
}

static int failAll()
{
    const QTemporaryDir folder;
    const std::vector<Scenario> all = scenarios(folder.path() + u"/rooms"_s);
    int wrong = 0;
    for (std::size_t i = 0; i < all.size(); ++i) {
        wrong += FaultyDisk(all[i], folder.path(), static_cast<int>(i)).run();
    }
    return wrong;
}

} // namespace orvanta::kill

int main(int count, char** arguments)
{
    const QCoreApplication application(count, arguments);
    const QStringList words = QCoreApplication::arguments();
    if (words.size() == 4 && words[1] == u"--work") {
        const auto all = orvanta::kill::scenarios(words[2] + QStringLiteral("/rooms"));
        orvanta::kill::doWork(all.at(words[3].toUInt()));
        return EXIT_SUCCESS;
    }
    return orvanta::kill::failAll() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
