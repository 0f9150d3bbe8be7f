#pragma once

#include <QString>
#include <stdexcept>

namespace Orvane {

// A run-time error of the file readers, numbered as the message boxes show it.
class Reader_Error : public std::runtime_error {
public:
    Reader_Error(int number, const QString& description);

    int Number() const { return number_; }
    const QString& Description() const { return description_; }

    static Reader_Error Overflow();             // 6
    static Reader_Error Type_Mismatch();        // 13
    static Reader_Error File_Not_Found();       // 53
    static Reader_Error Input_Past_End();       // 62
    static Reader_Error Path_File_Access();     // 75

private:
    int number_;
    QString description_;
};

} // namespace Orvane
