#include "language/text_table.h"

#include "base/numbers.h"
#include "base/reader_error.h"
#include "base/text_file.h"
#include "ui/message_box.h"

#include <optional>

namespace Orvane {

namespace {

// The file's positions are 1-based character positions, as in the format's
// own description; these helpers keep that arithmetic intact.

// 1-based position of the first ";" at or after position from, 0 when none.
int Find_Separator(const QString& line, int from)
{
    if (from > line.size())
        return 0;
    const qsizetype index = line.indexOf(u';', from - 1);
    return index < 0 ? 0 : int(index) + 1;
}

} // namespace

bool Text_Table::Load_Language(const QString& folder, const QString& language_name)
{
    std::optional<Text_File_Reader> file;
    try {
        file.emplace(folder + QStringLiteral("/Lang.ini"));
    } catch (const Reader_Error&) {
        return false;
    }

    try {
        if (file->Read_Line() != QLatin1String(Release)) {
            Language_Error = QStringLiteral("The release of Lang.ini is not correct");
            Language_File_Error();
            return false;
        }
        if (!file->Read_Line().isEmpty())
            return false;

        // A ";" at the end of the list adds an empty name, as split does.
        language_names_ = file->Read_Line().split(u';');
        const qsizetype index = language_names_.indexOf(language_name);
        language_column_ = int16_t((index < 0 ? language_names_.size() : index) + 1);

        if (!file->Read_Line().isEmpty())
            return false;

        records_.clear();
        do {
            const QString line = file->Read_Line();
            if (line.isEmpty() || line.startsWith(u'#'))
                continue;
            if (!Add_Text_Line(line, file->Line_Number())) {
                Language_File_Error();
                return false;
            }
        } while (!file->At_End());
        return true;
    } catch (const Reader_Error&) {
        // Only reading past the end can fail here: the file stops before its
        // first text line.
        Language_Error = file->Line_Number() == 0
            ? QStringLiteral("Lang.ini is empty")
            : QStringLiteral("Lang.ini ends at line %1, before its first text line")
                  .arg(file->Line_Number());
        Language_File_Error();
        return false;
    }
}

bool Text_Table::Add_Text_Line(const QString& line, int line_number)
{
    Text_Record record;
    try {
        record.number = Round_To_Int16(Strict_Double(line.left(4)));
    } catch (const Reader_Error&) {
        Language_Error = QStringLiteral("Line %1 of Lang.ini does not begin with a text number")
                             .arg(line_number);
        return false;
    }

    // The text of column c starts after the (c - 1)-th ";" found from
    // position 5; a search that finds nothing starts the next one again at
    // the beginning of the line.
    int position = 5;
    for (int k = 1; k < language_column_; ++k)
        position = Find_Separator(line, position + 1);
    const int start = position + 1;
    // Searching the end from one past the start makes an empty text read as
    // the separator followed by the next text.
    int end = Find_Separator(line, start + 1);
    if (end == 0)
        end = int(line.size()) + 1;
    if (end < start) {
        Language_Error = QStringLiteral("Line %1 of Lang.ini is too short to hold a text")
                             .arg(line_number);
        return false;
    }
    record.text = line.mid(start - 1, end - start);
    records_.push_back(std::move(record));
    return true;
}

QString Text_Table::Get_Text(int16_t number) const
{
    // The last record is deliberately left out of the search.
    for (std::size_t k = 0; k + 1 < records_.size(); ++k)
        if (records_[k].number == number)
            return records_[k].text;
    return QString();
}

void Text_Table::Language_File_Error() const
{
    Message_Box(QStringLiteral("Error in Lang.ini\n") + Language_Error
                + QStringLiteral("\nThe application can't continue"));
}

} // namespace Orvane
