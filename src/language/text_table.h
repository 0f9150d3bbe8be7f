#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <vector>

namespace Orvane {

// The texts of one language, looked up by number. Every word the program
// shows comes from here.
class Text_Table {
public:
    struct Text_Record {
        int16_t number = 0;
        QString text;
    };

    // The version the first line of the language file must hold, exactly.
    static constexpr const char* Release = "0.5b";

    // Reads folder + "/Lang.ini" for the language named language_name.
    // False on any refusal; the version refusal shows its own message box, a
    // missing file and non-empty lines 2 or 4 refuse without a word, and a
    // damaged text line or a file ending before its first text line refuse
    // with the same box naming the fault. A refusal leaves the table as far
    // as it was rebuilt.
    bool Load_Language(const QString& folder, const QString& language_name);

    // The text of a number, empty when the number is not found. Of two
    // records with the same number the earlier wins; the last record is
    // never searched, so the file's last text line cannot be found.
    QString Get_Text(int16_t number) const;

    const QStringList& Language_Names() const { return language_names_; }
    int16_t Language_Count() const { return int16_t(language_names_.size()); }
    int16_t Language_Column() const { return language_column_; }
    const std::vector<Text_Record>& Records() const { return records_; }

    // Detail line of the last failure message; other readers use it as their
    // scratch message too.
    QString Language_Error;

private:
    // Shows "Error in Lang.ini", Language_Error and the closing line.
    void Language_File_Error() const;
    // False, with Language_Error set, for a line that holds no text.
    bool Add_Text_Line(const QString& line, int line_number);

    QStringList language_names_;
    int16_t language_column_ = 0;
    std::vector<Text_Record> records_;
};

} // namespace Orvane
