#include "window/file_drop.h"

#include "model/dropped_files.h"

#include <QDropEvent>
#include <QMimeData>

namespace orvanta {

using namespace Qt::StringLiterals;

static const QString kUriList = u"text/uri-list"_s;

void welcomeFiles(QDropEvent& drag)
{
    if (drag.mimeData()->hasFormat(kUriList)) {
        drag.setDropAction(Qt::CopyAction);
        drag.accept();
    } else {
        drag.ignore();
    }
}

QStringList takeFiles(QDropEvent& drop)
{
    drop.setDropAction(Qt::CopyAction);
    drop.accept();
    return filesOfUriList(drop.mimeData()->data(kUriList));
}

} // namespace orvanta
