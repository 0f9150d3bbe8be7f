#include "config/config_file.h"

#include "base/numbers.h"
#include "base/reader_error.h"
#include "base/text_file.h"
#include "language/text_table.h"
#include "ui/message_box.h"

#include <QStringList>

namespace Orvane {

namespace {

const QString Config_Release = QStringLiteral("0.5b");

enum Config_Text : int16_t {
    Bad_First_Line = 1004,
    Wrong_Version = 1005,
    Missing_Key = 1006,
    Read_Error = 1007,
    Error_Number = 1008,
    Closing_Line = 1009,
    Opening_Line = 1010,
};

// A refusal of the file's layout, with the body of its message.
struct Config_Refusal {
    QString message;
};

// Reads the fixed sequence of lines. Texts are fetched when a message is
// built, so a refusal before the language is loaded shows whatever the
// table holds at that moment.
class Config_Reader {
public:
    Config_Reader(const QString& path, const Text_Table& texts) : file_(path), texts_(texts) {}

    QString Read_Config_Line() { return file_.Read_Line(); }

    // Keys are compared in upper case without trimming; the name shown when
    // the line is wrong may differ from the key (">Bold" for ">Gras").
    void Expect(const QString& key, const QString& shown_name)
    {
        if (Read_Config_Line().toUpper() != key.toUpper())
            throw Config_Refusal{texts_.Get_Text(Missing_Key) + shown_name};
    }
    void Expect(const QString& key) { Expect(key, key); }

    QString Value_Of(const QString& key)
    {
        Expect(key);
        return Read_Config_Line();
    }

    // The "= 1" rule: a strict number, true only when it equals 1.
    bool Equals_One_Value_Of(const QString& key) { return Strict_Double(Value_Of(key)) == 1.0; }

    int16_t Rounded_Value_Of(const QString& key)
    {
        return Round_To_Int16(Leading_Number(Value_Of(key)));
    }

private:
    Text_File_Reader file_;
    const Text_Table& texts_;
};

void Show_Config_Error(const Text_Table& texts, const QString& config_message)
{
    Message_Box(texts.Get_Text(Opening_Line) + u'\n' + config_message + u'\n'
                + texts.Get_Text(Closing_Line));
}

QString Flag(bool value) { return value ? QStringLiteral("1") : QStringLiteral("0"); }

QString Color_Line(const Subtitle_Color_Value& color)
{
    if (const auto* number = std::get_if<int32_t>(&color))
        return Printed_Number(*number);
    return std::get<QString>(color);
}

} // namespace

QString Config_Path(const QString& folder)
{
    return folder + QStringLiteral("/orvan.ini");
}

bool Read_Config(const QString& folder, Settings& settings, Text_Table& texts)
{
    return Read_Config_File(Config_Path(folder), folder, settings, texts);
}

bool Read_Config_File(const QString& config_path, const QString& language_folder,
                      Settings& settings, Text_Table& texts)
{
    try {
        Config_Reader reader(config_path, texts);
        if (!reader.Read_Config_Line().startsWith(QStringLiteral("<<")))
            throw Config_Refusal{texts.Get_Text(Bad_First_Line)};
        reader.Expect(QStringLiteral("[VERSION]"));
        if (reader.Read_Config_Line() != Config_Release)
            throw Config_Refusal{texts.Get_Text(Wrong_Version)};

        settings.Language_Name = reader.Value_Of(QStringLiteral("[LANGUE]"));
        if (!texts.Load_Language(language_folder, settings.Language_Name))
            return false;

        reader.Expect(QStringLiteral("[SOUS TITRAGE]"));
        settings.Subtitle_Font_Name = reader.Value_Of(QStringLiteral(">Police"));
        reader.Expect(QStringLiteral(">Gras"), QStringLiteral(">Bold"));
        settings.Subtitle_Font_Bold = Text_To_Boolean(reader.Read_Config_Line());
        settings.Subtitle_Font_Italic = Text_To_Boolean(reader.Value_Of(QStringLiteral(">Italique")));
        settings.Subtitle_Font_Size = reader.Rounded_Value_Of(QStringLiteral(">Taille"));
        settings.Subtitle_Color = reader.Value_Of(QStringLiteral(">Couleur"));
        settings.Subtitle_Transparent = reader.Equals_One_Value_Of(QStringLiteral(">Transparence"));

        reader.Expect(QStringLiteral("[PLAYLIST]"));
        settings.Playlist_Repeat = reader.Equals_One_Value_Of(QStringLiteral(">Repeter"));

        reader.Expect(QStringLiteral("[LECTEURS]"));
        settings.CD1_Drive = reader.Value_Of(QStringLiteral(">CD1"));
        settings.CD2_Drive = reader.Value_Of(QStringLiteral(">CD2"));

        settings.Volume_Setting = reader.Rounded_Value_Of(QStringLiteral("[VOLUME]"));

        reader.Expect(QStringLiteral("[CONFIG]"));
        settings.Save_Settings = reader.Equals_One_Value_Of(QStringLiteral(">Enregistrer"));
        // The trailer line and anything after it are never read.
        return true;
    } catch (const Config_Refusal& refusal) {
        Show_Config_Error(texts, refusal.message);
        return false;
    } catch (const Reader_Error& error) {
        // The trap's message ends with the closing line, which the box adds
        // once more: the user sees it twice.
        Show_Config_Error(texts, texts.Get_Text(Read_Error) + u'\n' + texts.Get_Text(Error_Number)
                                     + QString::number(error.Number()) + QStringLiteral(", ")
                                     + error.Description() + u'\n' + texts.Get_Text(Closing_Line));
        return false;
    }
}

bool Write_Config(const QString& folder, const Settings& settings, int volume_level)
{
    const QStringList lines = {
        QStringLiteral("<< Orvane - configuration file>>"),
        QStringLiteral("[VERSION]"),
        Config_Release,
        QStringLiteral("[LANGUE]"),
        settings.Language_Name,
        QStringLiteral("[SOUS TITRAGE]"),
        QStringLiteral(">Police"),
        settings.Subtitle_Font_Name,
        QStringLiteral(">Gras"),
        Flag(settings.Subtitle_Font_Bold),
        QStringLiteral(">Italique"),
        Flag(settings.Subtitle_Font_Italic),
        QStringLiteral(">Taille"),
        Printed_Number(settings.Subtitle_Font_Size),
        QStringLiteral(">Couleur"),
        Color_Line(settings.Subtitle_Color),
        QStringLiteral(">Transparence"),
        Flag(settings.Subtitle_Transparent),
        QStringLiteral("[PLAYLIST]"),
        QStringLiteral(">Repeter"),
        Flag(settings.Playlist_Repeat),
        QStringLiteral("[LECTEURS]"),
        QStringLiteral(">CD1"),
        settings.CD1_Drive,
        QStringLiteral(">CD2"),
        settings.CD2_Drive,
        QStringLiteral("[VOLUME]"),
        Printed_Number(volume_level),
        QStringLiteral("[CONFIG]"),
        QStringLiteral(">Enregistrer"),
        Flag(settings.Save_Settings),
        QStringLiteral("<< Do not change this file >>"),
    };
    const QString path = Config_Path(folder);
    const Save_Result result = Write_Text_Lines(path, lines);
    if (!result)
        Message_Box(path + u'\n' + result.reason, Box_Style::Critical_Ok);
    return result.saved;
}

} // namespace Orvane
