#include "base/reader_error.h"

namespace Orvane {

Reader_Error::Reader_Error(int number, const QString& description)
    : std::runtime_error(description.toStdString()), number_(number), description_(description)
{
}

Reader_Error Reader_Error::Overflow() { return {6, QStringLiteral("Overflow")}; }
Reader_Error Reader_Error::Type_Mismatch() { return {13, QStringLiteral("Type mismatch")}; }
Reader_Error Reader_Error::File_Not_Found() { return {53, QStringLiteral("File not found")}; }
Reader_Error Reader_Error::Input_Past_End() { return {62, QStringLiteral("Input past end of file")}; }
Reader_Error Reader_Error::Path_File_Access() { return {75, QStringLiteral("Path/File access error")}; }

} // namespace Orvane
