// Texts of paths: parts make the whole again.

#include "core/paths.h"
#include "tests/fuzz/fuzzing.h"

using namespace orvanta;
using namespace orvanta::fuzz;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const QString path = input.text();
    const QString name = input.text();
    require(folderOfPath(path) + fileNameOfPath(path) == path, "folder and name are the path");
    require(fileNameOfPath(path).startsWith(clipNameOfPath(path)), "a clip's name begins the name");
    require(kindOfPath(path).size() <= 9, "a kind is three characters, however they grow");
    const QString joined = joinPath(path, name);
    require(joined.isEmpty() || (joined.startsWith(path) && joined.endsWith(name)),
            "both parts stand in a joined path");
    const QString below = name.mid(name.startsWith(u'\\') ? 1 : 0).replace(u'\\', u'/');
    require(below.isEmpty() || programFile(path, name).endsWith(below),
            "a name below the program's folder is at the end");
    return 0;
}
