#include "support/fake_media_graph.h"

namespace Orvane::Test {

QStringList Call_Journal::Only(const QStringList& prefixes) const
{
    QStringList kept;
    for (const QString& call : calls) {
        if (std::any_of(prefixes.begin(), prefixes.end(), [&](const QString& p) { return call.startsWith(p); }))
            kept.append(call);
    }
    return kept;
}

bool Call_Journal::Comes_Before(const QString& first, const QString& second) const
{
    const qsizetype a = calls.indexOf(first);
    const qsizetype b = calls.indexOf(second);
    return a >= 0 && b >= 0 && a < b;
}

bool Fake_Media_Graph::Open_Graph(const QString& path)
{
    Add("Open_Graph", path);
    ++opens_;
    if (!failure_.isEmpty()) {
        last_error_ = failure_;
        open_ = false;
        return false;
    }
    open_ = true;
    running_ = false;
    ++pipeline_id_;
    opened_path_ = path;
    position_ = 0.0;
    return true;
}

bool Fake_Media_Graph::Render_Associated_Audio(const QString& path)
{
    Add("Render_Associated_Audio", path);
    if (fail_associated_)
        last_error_ = QStringLiteral("cannot render %1").arg(path);
    return !fail_associated_;
}

} // namespace Orvane::Test
