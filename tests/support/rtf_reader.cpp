#include "support/rtf_reader.h"

#include <QSet>
#include <QStringDecoder>

#include <cctype>
#include <vector>

namespace tarnwick {
namespace {

/// What holds in a group and ends with it.
struct GroupState {
    bool skipped = false; ///< a destination that holds no text of the document
    bool struck = false;
    int unicode_skip = 1;
};

class RtfReader {
public:
    explicit RtfReader(const QByteArray& rtf)
        : rtf_(rtf)
    {
    }

    RtfDocument read()
    {
        document_.whole = rtf_.startsWith("{\\rtf1");
        while (at_ < rtf_.size())
            read_next();
        document_.whole = document_.whole && groups_.empty();
        document_.paragraphs.append(paragraph_);
        return document_;
    }

private:
    void read_next()
    {
        const char c = rtf_.at(at_++);
        if (c == '{') {
            groups_.push_back(state_);
        } else if (c == '}') {
            close_group();
        } else if (c == '\\') {
            read_control();
        } else if (c != '\r' && c != '\n') {
            append_byte(c);
        }
    }

    void close_group()
    {
        if (groups_.empty()) {
            document_.whole = false;
            return;
        }
        state_ = groups_.back();
        groups_.pop_back();
        if (groups_.empty() && at_ != rtf_.size())
            document_.whole = false;
    }

    void read_control()
    {
        const char c = at_ < rtf_.size() ? rtf_.at(at_) : ' ';
        if (c == '\'') {
            append_byte(static_cast<char>(rtf_.mid(at_ + 1, 2).toInt(nullptr, 16)));
            at_ += 3;
        } else if (c == '*') {
            state_.skipped = true;
            ++at_;
        } else if (std::isalpha(static_cast<unsigned char>(c)) != 0) {
            read_word();
        } else {
            append_byte(c);
            ++at_;
        }
    }

    void read_word()
    {
        QByteArray word;
        while (at_ < rtf_.size() && std::isalpha(static_cast<unsigned char>(rtf_.at(at_))) != 0)
            word += rtf_.at(at_++);
        QByteArray number;
        if (at_ < rtf_.size() && rtf_.at(at_) == '-')
            number += rtf_.at(at_++);
        while (at_ < rtf_.size() && std::isdigit(static_cast<unsigned char>(rtf_.at(at_))) != 0)
            number += rtf_.at(at_++);
        if (at_ < rtf_.size() && rtf_.at(at_) == ' ')
            ++at_;
        obey(word, number);
    }

    void obey(const QByteArray& word, const QByteArray& number)
    {
        static const QSet<QByteArray> descriptions{"fonttbl", "stylesheet", "info", "colortbl"};
        if (descriptions.contains(word))
            state_.skipped = true;
        else if (word == "par")
            end_paragraph();
        else if (word == "tab")
            append(u'\t');
        else if (word == "line")
            append(u'\n');
        else if (word == "strike")
            set_struck(number != "0");
        else if (word == "plain")
            set_struck(false);
        else if (word == "uc")
            state_.unicode_skip = number.toInt();
        else if (word == "u")
            append_unicode(number.toInt());
    }

    void set_struck(bool struck)
    {
        if (struck && !state_.struck)
            document_.struck.append(QString());
        state_.struck = struck;
    }

    void append_unicode(int number)
    {
        append(QChar(static_cast<char16_t>(number)));
        ignored_ = state_.unicode_skip;
    }

    void end_paragraph()
    {
        document_.paragraphs.append(paragraph_);
        paragraph_.clear();
    }

    void append_byte(char byte)
    {
        if (ignored_ > 0) {
            --ignored_;
            return;
        }
        static const QStringDecoder probe("windows-1252");
        if (!probe.isValid())
            qFatal("no decoder for code page 1252");
        QStringDecoder decoder("windows-1252");
        const QString text = decoder(QByteArray(1, byte));
        for (const QChar c : text)
            append(c);
    }

    void append(QChar c)
    {
        if (state_.skipped)
            return;
        paragraph_ += c;
        if (state_.struck)
            document_.struck.last() += c;
    }

    QByteArray rtf_;
    qsizetype at_ = 0;
    int ignored_ = 0; ///< characters that stand for a Unicode one before them
    GroupState state_;
    std::vector<GroupState> groups_;
    QString paragraph_;
    RtfDocument document_;
};

} // namespace

RtfDocument read_rtf(const QByteArray& rtf)
{
    return RtfReader(rtf).read();
}

} // namespace tarnwick
