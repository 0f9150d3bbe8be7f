#pragma once

#include "media/media_graph.h"

#include <QRegularExpression>
#include <QStringList>
#include <QVariant>

namespace Orvane::Test {

// The calls of the fakes in the order they were made, each written as its
// name with its arguments ("Set_Volume(-1500)"), so a test can check the
// order of operations across the graph and the windows around it.
struct Call_Journal {
    QStringList calls;

    template <typename... Args>
    void Add(const char* name, const Args&... args)
    {
        const QStringList texts{QVariant(args).toString()...};
        calls.append(texts.isEmpty() ? QString(name) : QStringLiteral("%1(%2)").arg(name, texts.join(u',')));
    }
    // The calls that begin with one of the prefixes, in order.
    QStringList Only(const QStringList& prefixes) const
    {
        return calls.filter(QRegularExpression(QStringLiteral("^(%1)").arg(prefixes.join(u'|'))));
    }
    void Clear() { calls.clear(); }
};

// A pipeline that plays nothing: it journals every call and keeps the
// position and duration a test gives it. Its picture is 320x240.
class Fake_Media_Graph : public Media_Graph {
public:
    explicit Fake_Media_Graph(Call_Journal& journal) : journal(journal) {}
    bool Open_Graph(const QString& path) override
    {
        journal.Add("Open_Graph", path);
        last_error = open_failure;
        open = open_failure.isEmpty();
        running = false;
        pipeline_id += open;
        opened_path = open ? path : opened_path;
        position = 0.0;
        end_reached = false;
        return open;
    }
    void Close_Graph() override { journal.Add("Close_Graph"); open = running = false; }
    bool Is_Open() const override { return open; }
    int Pipeline_Id() const override { return pipeline_id; }
    QString Last_Error() const override { return last_error; }
    void Run() override { journal.Add("Run"); running = open; }
    void Pause() override { journal.Add("Pause"); running = false; }
    void Stop() override { journal.Add("Stop"); running = false; }
    double Current_Position() const override { return position; }
    void Set_Current_Position(double to) override
    {
        journal.Add("Set_Current_Position", to);
        position = to;
        end_reached = false;
    }
    double Duration() const override { return open ? duration : 0.0; }
    bool End_Reached() const override { return open && end_reached; }
    QSize Video_Size() const override { return open ? QSize(320, 240) : QSize(); }
    void Set_Volume(int hundredths) override { journal.Add("Set_Volume", hundredths); }
    void Show_Cursor() override { journal.Add("Show_Cursor"); }
    void Record_Audio_Pins(bool video, int streams) override { journal.Add("Record_Audio_Pins", video, streams); }
    // Like the engine's, it stops the graph first.
    void Disconnect_Audio_Stream(int k) override { journal.Add("Disconnect_Audio_Stream", k); running = false; }
    void Disconnect_Audio_Streams(bool video, int n) override { journal.Add("Disconnect_Audio_Streams", video, n); }
    void Connect_Audio_Stream(int stream) override { journal.Add("Connect_Audio_Stream", stream); }
    bool Render_Associated_Audio(const QString& path) override
    {
        journal.Add("Render_Associated_Audio", path);
        const bool fails = path == unheard_file;
        last_error = fails ? QStringLiteral("cannot render ") + path : QString();
        return !fails;
    }
    bool Drop_Associated_Audio() override
    {
        journal.Add("Drop_Associated_Audio");
        return drop_in_place;
    }
    void Save_Position() override { journal.Add("Save_Position"); saved_position = position; }
    void Restore_Position() override { journal.Add("Restore_Position"); position = saved_position; }

    Call_Journal& journal;
    QString open_failure, opened_path, last_error;  // opens fail with open_failure when it is set
    QString unheard_file;                            // an associated file that cannot be rendered
    bool open = false, running = false, end_reached = false;
    bool drop_in_place = true;  // Drop_Associated_Audio succeeds (false: the file must be opened again)
    int pipeline_id = 0;
    double duration = 60.0, position = 0.0, saved_position = 0.0;
};

} // namespace Orvane::Test
