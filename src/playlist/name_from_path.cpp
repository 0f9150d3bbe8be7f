#include "playlist/name_from_path.h"

namespace Orvane {

QString Name_From_Path(const QString& path)
{
    // 0-based transcription of the 1-based search: start after the last "/"
    // found from the second character on.
    qsizetype start = 1;
    for (qsizetype slash = path.indexOf(u'/', start); slash >= 0; slash = path.indexOf(u'/', start))
        start = slash + 1;
    if (start >= path.size())
        return QString();
    const qsizetype dot = path.indexOf(u'.', start);
    return dot < 0 ? path.mid(start) : path.mid(start, dot - start);
}

} // namespace Orvane
