#include "base/numbers.h"

#include "base/reader_error.h"

#include <cmath>
#include <limits>

namespace Orvane {

namespace {

bool Is_Blank(QChar c) { return c == u' ' || c == u'\t'; }

// Length of the numeric prefix of text starting at from (0 when none).
int Numeric_Prefix_Length(const QString& text, int from)
{
    int i = from;
    const int n = int(text.size());
    if (i < n && (text[i] == u'+' || text[i] == u'-'))
        ++i;
    int digits = 0;
    while (i < n && text[i].isDigit() && text[i].unicode() < 128) {
        ++i;
        ++digits;
    }
    if (i < n && text[i] == u'.') {
        ++i;
        while (i < n && text[i].isDigit() && text[i].unicode() < 128) {
            ++i;
            ++digits;
        }
    }
    if (digits == 0)
        return 0;
    if (i < n && (text[i] == u'e' || text[i] == u'E' || text[i] == u'd' || text[i] == u'D')) {
        int j = i + 1;
        if (j < n && (text[j] == u'+' || text[j] == u'-'))
            ++j;
        const int exponent_start = j;
        while (j < n && text[j].isDigit() && text[j].unicode() < 128)
            ++j;
        if (j > exponent_start)
            i = j;
    }
    return i - from;
}

// A number too large for a double is an overflow, as the conversion
// statements of the file formats' own language raise it.
double Parse_Prefix(const QString& text, int from, int length)
{
    QString number = text.mid(from, length);
    number.replace(u'd', u'e').replace(u'D', u'e');
    const double value = number.toDouble();
    if (!std::isfinite(value))
        throw Reader_Error::Overflow();
    return value;
}

} // namespace

double Leading_Number(const QString& text)
{
    int start = 0;
    while (start < text.size() && Is_Blank(text[start]))
        ++start;
    const int length = Numeric_Prefix_Length(text, start);
    return length == 0 ? 0.0 : Parse_Prefix(text, start, length);
}

int16_t Round_To_Int16(double value)
{
    const double rounded = std::nearbyint(value); // default rounding mode: half to even
    if (!(rounded >= -32768.0 && rounded <= 32767.0))
        throw Reader_Error::Overflow();
    return static_cast<int16_t>(rounded);
}

int32_t Round_To_Int32(double value)
{
    const double rounded = std::nearbyint(value);
    if (!(rounded >= double(std::numeric_limits<int32_t>::min())
          && rounded <= double(std::numeric_limits<int32_t>::max())))
        throw Reader_Error::Overflow();
    return static_cast<int32_t>(rounded);
}

double Strict_Double(const QString& text)
{
    const QString trimmed = text.trimmed();
    const int length = Numeric_Prefix_Length(trimmed, 0);
    if (length == 0 || length != trimmed.size())
        throw Reader_Error::Type_Mismatch();
    return Parse_Prefix(trimmed, 0, length);
}

bool Text_To_Boolean(const QString& text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.compare(u"True", Qt::CaseInsensitive) == 0)
        return true;
    if (trimmed.compare(u"False", Qt::CaseInsensitive) == 0)
        return false;
    return Strict_Double(trimmed) != 0.0;
}

QString Printed_Number(double value)
{
    QString digits = QString::number(std::fabs(value), 'g', 15).toUpper();
    // The statement writes no zero before the decimal point: 0.5 is " .5 ".
    if (digits.startsWith(QLatin1String("0.")))
        digits.remove(0, 1);
    return (value < 0 ? QStringLiteral("-") : QStringLiteral(" ")) + digits + u' ';
}

} // namespace Orvane
