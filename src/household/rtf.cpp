#include "household/rtf.h"

#include "data/text.h"

#include <algorithm>
#include <array>

namespace tarnwick {
namespace {

/// The files break their lines with CR alone.
constexpr char cr[] = "\r";

constexpr char header[]
    = R"({\rtf1\ansi\ansicpg1252\uc1 \deff0\deflang1033\deflangfe1033)"
      R"({\fonttbl{\f0\fswiss\fcharset0\fprq2{\*\panose 020b0604020202020204}Arial;}})"
      R"({\stylesheet{\widctlpar\adjustright \fs20\cgrid \snext0 Normal;})"
      R"({\*\cs10 \additive Default Paragraph Font;})"
      R"({\s15\qc\widctlpar\adjustright \b\f0\fs20\cgrid\sbasedon0 \snext15 Title;}})"
      R"({\info{\creatim\yr2002\mo1\dy20\hr20\min55}{\revtim\yr2002\mo1\dy20\hr21\min32}{\version1}{\edmins37})"
      R"({\nofpages1}{\nofwords0}{\nofchars0}})"
      R"(\margl1440\margr1440 \widowctrl\ftnbj\aenddoc\formshade\viewkind4\viewscale92\viewzk2)"
      R"(\pgbrdrhead\pgbrdrfoot \fet0\sectd \linex0\endnhere\sectdefaultcl )"
      R"(\pard\plain \s15\qc\widctlpar\adjustright \b\f0\fs20\cgrid)";

/// Code page 1252 from 0x80 to 0x9F; 0 where it holds nothing.
constexpr std::array<char16_t, 32> upper_controls = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

/// The byte of a character in code page 1252; 0 when it has none.
unsigned char code_page_byte(char16_t c)
{
    if ((c >= 0x20 && c < 0x7F) || (c >= 0xA0 && c <= 0xFF))
        return static_cast<unsigned char>(c);
    const auto* const found = std::find(upper_controls.begin(), upper_controls.end(), c);
    if (c == 0 || found == upper_controls.end())
        return 0;
    return static_cast<unsigned char>(0x80 + (found - upper_controls.begin()));
}

void append_character(QByteArray& rtf, char16_t c)
{
    if (c == u'\t') {
        rtf += "\\tab ";
    } else if (c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator) {
        rtf += "\\line ";
    } else if (c == u'\\' || c == u'{' || c == u'}') {
        rtf += '\\';
        rtf += static_cast<char>(c);
    } else if (const unsigned char byte = code_page_byte(c)) {
        rtf += static_cast<char>(byte);
    } else {
        rtf += "\\u" + QByteArray::number(static_cast<qint16>(c)) + '?';
    }
}

QByteArray field_text(const QString& text)
{
    return text.isNull() ? QByteArray(" ") : rtf_text(text);
}

QByteArray list_row(const SheetRow& row, QDate today)
{
    constexpr char tab[] = "\\tab ";
    const char* const coupon = !row.cpn ? "" : row.coupon_expired(today) ? "{\\strike CPN}" : "CPN";
    return field_text(row.item) + tab + field_text(row.desc) + tab + field_text(row.qty) + tab
        + field_text(row.aisle) + tab + coupon + "\\par " + cr;
}

} // namespace

QByteArray rtf_text(QStringView text)
{
    QByteArray rtf;
    rtf.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool second_of_line_end = text[i] == u'\n' && i > 0 && text[i - 1] == u'\r';
        if (!second_of_line_end)
            append_character(rtf, text[i].unicode());
    }
    return rtf;
}

QByteArray recipe_rtf(const RecipeSheet& recipe)
{
    QByteArray rtf = QByteArray(header) + cr;
    rtf += "{\\fs24\\par " + rtf_text(trim(recipe.title)) + cr;
    rtf += R"(\par }\pard\plain \widctlpar\adjustright \fs20\cgrid {\f0\fs24\par })"
           R"(\pard \fi-360\li1080\ri1440\widctlpar\adjustright {\f0\fs24\i )";
    for (const QString& line : recipe.lines)
        rtf += rtf_text(trim(line)) + "\\par " + cr;
    rtf += R"(}\pard\plain \widctlpar\adjustright {\f0\fs24\par )";
    for (QString piece : trim(recipe.body).split(u'\r')) {
        if (piece.startsWith(u'\n'))
            piece.remove(0, 1);
        rtf += rtf_text(piece) + "\\par ";
    }
    return rtf + "\\par }}";
}

QByteArray list_rtf(const ListSheet& list, QDate today)
{
    QByteArray rtf = QByteArray(header) + cr;
    rtf += "{\\fs24\\par " + rtf_text(list.name);
    rtf += R"(\par }\pard\plain \widctlpar\adjustright \fs20\cgrid {\f0\fs24\par }\pard {\f0\fs24\i )";
    rtf += R"(\par }\pard \ql \li0\ri0\widctlpar\tx3600\tx6800\tx7500\tx8400\aspalpha\aspnum\faauto\adjustright)"
           R"(\rin0\lin0\itap0 {\f1\fs24\i Ingredient\tab Description\tab Qty\tab Aisle\tab CPN)";
    // The font table has no \f1: the word processor's own font takes its place. This is kept.
    rtf += QByteArray(cr) + R"(\par}{\f1\fs24\par )";
    for (const SheetRow& row : list.rows)
        rtf += list_row(row, today);
    return rtf + "\\par " + cr + "\\par }}";
}

} // namespace tarnwick
