#pragma once

#include "media/media_graph.h"

#include <QString>
#include <QStringList>

namespace Orvane::Test {

// The calls of one or more fakes in the order they were made, so a test can
// check the order of operations across the graph, the window and the rest.
// A call is written as its name with its arguments: "Set_Volume(-1500)".
struct Call_Journal {
    QStringList calls;

    template <typename... Args>
    void Add(const char* name, const Args&... args)
    {
        QStringList texts;
        (texts.append(Text(args)), ...);
        calls.append(sizeof...(Args) ? QStringLiteral("%1(%2)").arg(QLatin1String(name), texts.join(u','))
                                     : QString::fromLatin1(name));
    }
    // The calls that begin with one of the prefixes, in order.
    QStringList Only(const QStringList& prefixes) const;
    bool Has(const QString& call) const { return calls.contains(call); }
    // Both calls were made, the first one earlier.
    bool Comes_Before(const QString& first, const QString& second) const;
    void Clear() { calls.clear(); }

private:
    static QString Text(const QString& value) { return value; }
    static QString Text(const char* value) { return QString::fromUtf8(value); }
    static QString Text(bool value) { return value ? QStringLiteral("true") : QStringLiteral("false"); }
    static QString Text(int value) { return QString::number(value); }
    static QString Text(double value) { return QString::number(value); }
};

// A pipeline that plays nothing: it journals every call and keeps the
// position, duration and saved position a test gives it.
class Fake_Media_Graph : public Media_Graph {
public:
    explicit Fake_Media_Graph(Call_Journal* journal = nullptr) : journal_(journal ? journal : &own_journal_) {}

    // The next opens fail with this message (empty: they succeed).
    void Fail_Opens_With(const QString& message) { failure_ = message; }
    void Fail_Associated_Renders(bool fail) { fail_associated_ = fail; }
    void Set_Media(double duration, QSize video_size = {}) { duration_ = duration; video_size_ = video_size; }
    // Where playback stands now, as the engine would report it.
    void Move_To(double seconds) { position_ = seconds; }
    void Emit_Error(const QString& message) { emit Error_Occurred(pipeline_id_, message); }
    void Emit_Error_Of(int pipeline_id, const QString& message) { emit Error_Occurred(pipeline_id, message); }

    bool Is_Running() const { return running_; }
    int Volume() const { return volume_; }
    int Opens() const { return opens_; }
    QString Opened_Path() const { return opened_path_; }

    bool Open_Graph(const QString& path) override;
    void Close_Graph() override { Add("Close_Graph"); open_ = false; running_ = false; }
    bool Is_Open() const override { return open_; }
    int Pipeline_Id() const override { return pipeline_id_; }
    QString Last_Error() const override { return last_error_; }
    void Run() override { Add("Run"); running_ = open_; }
    void Pause() override { Add("Pause"); running_ = false; }
    void Stop() override { Add("Stop"); running_ = false; }
    double Current_Position() const override { return position_; }
    void Set_Current_Position(double seconds) override { Add("Set_Current_Position", seconds); position_ = seconds; }
    double Duration() const override { return open_ ? duration_ : 0.0; }
    QSize Video_Size() const override { return open_ ? video_size_ : QSize(); }
    void Set_Volume(int hundredths) override { Add("Set_Volume", hundredths); volume_ = hundredths; }
    void Show_Cursor() override { Add("Show_Cursor"); }
    void Record_Audio_Pins(bool has_video, int streams) override { Add("Record_Audio_Pins", has_video, streams); }
    // Like the engine's, it stops the graph first.
    void Disconnect_Audio_Stream(int stream) override { Add("Disconnect_Audio_Stream", stream); running_ = false; }
    void Disconnect_Audio_Streams(bool has_video, int streams) override
    {
        Add("Disconnect_Audio_Streams", has_video, streams);
    }
    void Connect_Audio_Stream(int stream) override { Add("Connect_Audio_Stream", stream); }
    bool Render_Associated_Audio(const QString& path) override;
    void Save_Position() override { Add("Save_Position"); saved_position_ = position_; }
    void Restore_Position() override { Add("Restore_Position"); position_ = saved_position_; }

private:
    template <typename... Args>
    void Add(const char* name, const Args&... args) { journal_->Add(name, args...); }

    Call_Journal own_journal_;
    Call_Journal* journal_;
    QString failure_;
    QString last_error_;
    bool fail_associated_ = false;
    bool open_ = false;
    bool running_ = false;
    int pipeline_id_ = 0;
    int opens_ = 0;
    QString opened_path_;
    double duration_ = 0.0;
    QSize video_size_;
    double position_ = 0.0;
    double saved_position_ = 0.0;
    int volume_ = 0;
};

} // namespace Orvane::Test
