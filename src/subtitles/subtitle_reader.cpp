#include "subtitles/subtitle_reader.h"

#include "base/numbers.h"
#include "base/reader_error.h"
#include "base/text_file.h"
#include "base/time_text.h"
#include "config/settings.h"
#include "language/text_table.h"
#include "subtitles/subtitle_shape.h"
#include "subtitles/line_fit.h"
#include "ui/message_box.h"

#include <QFileInfo>
#include <QFont>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <limits>
#include <optional>

namespace Orvane {

namespace {

const QString End_Tag = QStringLiteral("[END]");
const QString Begin_Tag = QStringLiteral("[BEGIN]");
const QString Delay_Tag = QStringLiteral("[DELAY]");

// A failure whose detail text is ready to be shown.
struct Subtitle_Failure {
    QString detail;
};

QString Error_Detail(const Reader_Error& error)
{
    return QString::number(error.Number()) + QStringLiteral(", ") + error.Description();
}

// The largest size in points whose em is no taller than the screen, the
// point being 1/72 inch at the screen's logical resolution; no bound without
// a screen.
int Largest_Shown_Size()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen || screen->logicalDotsPerInchY() <= 0)
        return std::numeric_limits<int>::max();
    return std::max(1, int(screen->geometry().height() * 72.0 / screen->logicalDotsPerInchY()));
}

// Measures lines with the subtitle font and centres them on a window as wide
// as the screen, shrinking a line that does not fit. A size the screen cannot
// show is taken as the largest it can before the line is fitted.
class Line_Layout {
public:
    Line_Layout(const Settings& settings, int screen_width)
        : settings_(settings), settings_size_(settings.Subtitle_Font_Size),
          start_size_(std::min<int>(settings.Subtitle_Font_Size, Largest_Shown_Size())),
          screen_width_(screen_width)
    {
    }

    struct Placed {
        int16_t left;
        int size;
    };

    Placed Place(const QString& line)
    {
        const Fitted_Line fitted =
            Fit_Line(start_size_, screen_width_, [&](int size) { return Width_At(line, size); });
        return {Round_To_Int16((screen_width_ - fitted.width) / 2.0), fitted.size};
    }

    // The size an entry records: 0 while the settings' size is the one reached.
    int16_t Stored_Size(int reached) const
    {
        return reached == settings_size_ ? int16_t(0) : int16_t(reached);
    }

private:
    // Measured with the very font the subtitle window draws with.
    int Width_At(const QString& line, int size) const
    {
        return QFontMetrics(Subtitle_Shape::Subtitle_Font(settings_, size)).horizontalAdvance(line);
    }

    const Settings& settings_;
    int settings_size_;
    int start_size_;
    int screen_width_;
};

class Subtitle_File_Reader {
public:
    Subtitle_File_Reader(const QString& path, const Settings& settings, const Text_Table& texts,
                         int screen_width, Subtitle_Table& table)
        : file_(path), texts_(texts), layout_(settings, screen_width), table_(table)
    {
    }

    void Read()
    {
        Read_Header();
        file_.Read_Line();  // the line after "[BEGIN]" carries nothing
        Read_Body();
    }

private:
    void Read_Header()
    {
        for (;;) {
            const QString line = file_.Read_Line();
            QString* value = Header_Value(line);
            if (line == Delay_Tag)
                Read_Delay();
            else if (value)
                *value = file_.Read_Line();
            else if (line != Begin_Tag)
                continue;
            // The test looks at the title whatever the tag was: a value line that
            // is itself a tag is only noticed after "[TITLE]".
            if (table_.Subtitle_Title.startsWith(u'['))
                throw Subtitle_Failure{line + texts_.Get_Text(1301)};
            if (line == Begin_Tag)
                return;
        }
    }

    QString* Header_Value(const QString& line)
    {
        if (line == QLatin1String("[TITLE]"))
            return &table_.Subtitle_Title;
        if (line == QLatin1String("[AUTHOR]"))
            return &table_.Subtitle_Author;
        if (line == QLatin1String("[SOURCE]"))
            return &table_.Subtitle_Source;
        if (line == QLatin1String("[PRG]"))
            return &table_.Subtitle_Program;
        if (line == QLatin1String("[FILEPATH]"))
            return &table_.Subtitle_File_Path;
        if (line == QLatin1String("[CD TRACK]"))
            return &table_.Subtitle_CD_Track;
        return nullptr;
    }

    void Read_Delay()
    {
        const double seconds = Leading_Number(file_.Read_Line());
        if (seconds > 59 || seconds < 0)
            throw Subtitle_Failure{Delay_Tag + texts_.Get_Text(1301) + u'\n' + texts_.Get_Text(1302)};
        table_.Subtitle_Delay = Round_To_Int16(seconds);
    }

    void Read_Body()
    {
        std::optional<int> previous_time;
        QString line = file_.Read_Line();
        while (line != End_Tag) {
            Subtitle_Line& entry = table_.Subtitle_Lines.emplace_back();
            entry.time = line.mid(1, 8);
            const std::optional<int> time = Parse_Time_Text(entry.time);
            if (!time)
                throw Subtitle_Failure{line + u'\n' + Error_Detail(Reader_Error::Type_Mismatch())};
            if (previous_time && *time < *previous_time)
                throw Subtitle_Failure{Order_Detail(entry.time, texts_.Get_Text(1304))};
            if (previous_time && *time == *previous_time)
                throw Subtitle_Failure{Order_Detail(entry.time, texts_.Get_Text(1305))};
            Lay_Out(file_.Read_Line(), entry);
            previous_time = time;
            line = file_.Read_Line();
        }
        table_.Subtitle_Lines.push_back({QStringLiteral("23:59:59"), QStringLiteral("Fin"),
                                         QStringLiteral("Fin"), 0, 0, 0});
    }

    QString Order_Detail(const QString& time, const QString& reason) const
    {
        return time + texts_.Get_Text(1303) + u'\n' + reason;
    }

    void Lay_Out(const QString& text, Subtitle_Line& entry)
    {
        const qsizetype bar = text.indexOf(u'|');
        entry.line1 = bar < 0 ? text : text.left(bar);
        entry.line2 = bar < 0 ? QString() : text.mid(bar + 1);
        const Line_Layout::Placed first = layout_.Place(entry.line1);
        entry.left1 = first.left;
        int reached = first.size;
        if (bar >= 0) {
            const Line_Layout::Placed second = layout_.Place(entry.line2);
            entry.left2 = second.left;
            reached = second.size;  // the later line decides the entry's size
        }
        entry.size = layout_.Stored_Size(reached);
    }

    Text_File_Reader file_;
    const Text_Table& texts_;
    Line_Layout layout_;
    Subtitle_Table& table_;
};

} // namespace

bool Load_Subtitles(const QString& path, const Settings& settings, const Text_Table& texts,
                    int screen_width, Subtitle_Table& table, const QString& shown_name)
{
    table = Subtitle_Table();
    QString detail;
    try {
        Subtitle_File_Reader(path, settings, texts, screen_width, table).Read();
        return true;
    } catch (const Subtitle_Failure& failure) {
        detail = failure.detail;
    } catch (const Reader_Error& error) {
        detail = Error_Detail(error);
    }
    const QString name = shown_name.isEmpty() ? QFileInfo(path).fileName() : shown_name;
    Message_Box(name + u'\n' + texts.Get_Text(1310) + u'\n' + detail, Box_Style::Critical_Ok);
    return false;
}

} // namespace Orvane
