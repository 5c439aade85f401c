#include "recipes/page_text.h"

#include "data/text.h"
#include "household/recipe_store.h"
#include "widgets/key_kinds.h"

#include <QAbstractTextDocumentLayout>
#include <QKeyEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <QTextCursor>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace tarnwick {
namespace {

constexpr QChar degree(0xba);

bool is_oven_temperature(const QString& text)
{
    static const QStringList temperatures{
        QStringLiteral("300"), QStringLiteral("325"), QStringLiteral("350"), QStringLiteral("375"),
        QStringLiteral("400"), QStringLiteral("425"), QStringLiteral("450"),
    };
    return temperatures.contains(text);
}

} // namespace

bool leaves_control(Qt::FocusReason reason)
{
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason
        && reason != Qt::MenuBarFocusReason;
}

PageText::PageText(QWidget* parent)
    : QPlainTextEdit(parent)
{
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabChangesFocus(false);
    connect(this, &QPlainTextEdit::textChanged, this, &PageText::text_changed);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, [this] {
        if (!setting_)
            emit caret_moved();
    });
}

QString PageText::text() const
{
    QString text = document()->toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
    return with_crlf(text);
}

void PageText::set_text(const QString& text)
{
    const QScopedValueRollback<bool> setting(setting_, true);
    setPlainText(text);
}

bool PageText::is_blank() const
{
    return document()->blockCount() == 1 && trim(document()->firstBlock().text()).isEmpty();
}

bool PageText::is_help_text() const
{
    static const qsizetype longest = help_text().size() + 1000;
    return document()->characterCount() <= longest && trim(text()) == help_text();
}

PageText::Extent PageText::extent() const
{
    const int line_ends = document()->blockCount() - 1;
    return {document()->characterCount() - 1 + line_ends, line_ends};
}

void PageText::set_border_style(int style)
{
    border_style_ = style;
    setFrameShape(style == 1 ? QFrame::StyledPanel : QFrame::NoFrame);
}

// The document rounds its rows up, which the line spacing of the font does not.
int PageText::row_height() const
{
    const QFontMetricsF metrics(font());
    return static_cast<int>(std::ceil(metrics.ascent() + metrics.descent()) + std::max(0.0, metrics.leading()));
}

int PageText::full_height() const
{
    const auto* layout = document()->documentLayout();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        layout->blockBoundingRect(block);
    const int rows = static_cast<int>(layout->documentSize().height());
    return rows * row_height() + 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
}

int PageText::scrolled_pixels() const
{
    return verticalScrollBar()->value() * row_height();
}

int PageText::caret_top() const
{
    return frameWidth() + cursorRect().top() + scrolled_pixels();
}

int PageText::caret_bottom() const
{
    return frameWidth() + cursorRect().bottom() + scrolled_pixels();
}

void PageText::close_with(const QString& hint)
{
    setReadOnly(!hint.isEmpty());
    setPlaceholderText(hint);
}

bool PageText::event(QEvent* event)
{
    const bool done = QPlainTextEdit::event(event);
    if (event->type() == QEvent::Resize || event->type() == QEvent::FontChange)
        fit_rows();
    return done;
}

// A row that has no room at the lower edge is left out rather than cut in half.
void PageText::fit_rows()
{
    const int row = row_height();
    const int room = height() - 2 * frameWidth() - static_cast<int>(document()->documentMargin());
    setViewportMargins(0, 0, 0, room > 0 ? room % row : 0);
}

QString PageText::last_characters(int count) const
{
    const int end = document()->characterCount() - 1;
    QString text;
    for (int i = std::max(0, end - count); i < end; ++i)
        text += document()->characterAt(i);
    return text;
}

void PageText::text_changed()
{
    if (setting_)
        return;
    // A sign that undo has just taken does not come back: only after undo is there something to redo.
    const bool temperature = !document()->isRedoAvailable() && is_oven_temperature(last_characters(3));
    if (temperature)
        append_degree();
    emit edited();
    if (temperature)
        emit caret_moved();
}

void PageText::append_degree()
{
    const QScopedValueRollback<bool> setting(setting_, true);
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock();
    cursor.insertText(degree);
    cursor.endEditBlock();
    setTextCursor(cursor);
}

// One backspace takes the sign and the digit before it: without the digit gone the sign would come back.
bool PageText::take_back_degree()
{
    const QTextCursor caret = textCursor();
    if (caret.hasSelection() || !caret.atEnd())
        return false;
    const QString end = last_characters(4);
    if (end.size() < 4 || end[3] != degree || !is_oven_temperature(end.left(3)))
        return false;
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    cursor.movePosition(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor, 2);
    cursor.removeSelectedText();
    setTextCursor(cursor);
    return true;
}

// Letters in a row are one step for undo; a digit is one by itself, and a text behind one begins another.
bool PageText::begins_step(const QString& typed) const
{
    if (typed.size() != 1 || !typed[0].isPrint())
        return false;
    const QChar before = document()->characterAt(textCursor().selectionStart() - 1);
    return typed[0].isDigit() || before.isDigit() || before == degree;
}

void PageText::empty_help_text()
{
    if (!is_help_text())
        return;
    const QScopedValueRollback<bool> setting(setting_, true);
    clear();
    setPlaceholderText(help_text()); // the keyboard may come before the user has read it
}

void PageText::focusInEvent(QFocusEvent* event)
{
    empty_help_text();
    QPlainTextEdit::focusInEvent(event);
    if (comes_by_key(event->reason()))
        emit caret_moved();
}

/// A box that had the focus when the help text was loaded gets no focus event more.
void PageText::mousePressEvent(QMouseEvent* event)
{
    empty_help_text();
    QPlainTextEdit::mousePressEvent(event);
}

void PageText::focusOutEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusOutEvent(event);
    if (leaves_control(event->reason()))
        emit left();
}

bool PageText::leaves_upward(const QKeyEvent& event) const
{
    const QTextCursor caret = textCursor();
    if (event.key() != Qt::Key_Up || (event.modifiers() & ~Qt::KeypadModifier) || caret.blockNumber() > 0)
        return false;
    const QTextLine row = caret.block().layout()->lineForTextPosition(caret.positionInBlock());
    return !row.isValid() || row.lineNumber() == 0;
}

/// The control would go by the height of its box, scroll it, and be scrolled back. False for another key.
bool PageText::go_a_view(const QKeyEvent& event)
{
    const bool down = event.key() == Qt::Key_PageDown;
    const auto held = event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier | Qt::ShiftModifier);
    if ((!down && event.key() != Qt::Key_PageUp) || held)
        return false;
    QTextCursor caret = textCursor();
    const auto mode = event.modifiers() & Qt::ShiftModifier ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor;
    const int rows = std::max(1, view_height_ / row_height() - 1);
    caret.setVisualNavigation(true);
    caret.movePosition(down ? QTextCursor::Down : QTextCursor::Up, mode, rows);
    setTextCursor(caret);
    return true;
}

void PageText::keyPressEvent(QKeyEvent* event)
{
    if (leaves_upward(*event)) {
        emit up_from_top();
        return;
    }
    if (go_a_view(*event))
        return;
    if (isReadOnly()) {
        QPlainTextEdit::keyPressEvent(event);
        return;
    }
    emit edited();
    const bool plain = (event->modifiers() & ~Qt::KeyboardModifiers(Qt::ShiftModifier)) == Qt::NoModifier;
    if (event->key() == Qt::Key_Backspace && plain && take_back_degree())
        return;
    if (!begins_step(event->text())) {
        QPlainTextEdit::keyPressEvent(event);
        return;
    }
    QTextCursor step = textCursor();
    step.beginEditBlock();
    QPlainTextEdit::keyPressEvent(event);
    step.endEditBlock();
}

void PageText::keyReleaseEvent(QKeyEvent* event)
{
    QPlainTextEdit::keyReleaseEvent(event);
    if (isReadOnly())
        return;
    if (border_style_ == 1 && !is_blank())
        set_border_style(0);
    else if (border_style_ == 0 && is_blank())
        set_border_style(1);
    emit key_up();
}

bool PageText::canInsertFromMimeData(const QMimeData* source) const
{
    return source && QPlainTextEdit::canInsertFromMimeData(source);
}

void PageText::insertFromMimeData(const QMimeData* source)
{
    const QString pasted = source && !isReadOnly() ? source->text() : QString();
    if (pasted.isEmpty())
        return;
    QTextCursor step = textCursor();
    step.beginEditBlock();
    step.insertText(pasted);
    step.endEditBlock();
    setTextCursor(step);
    ensureCursorVisible();
}

/// A text of another program is dropped on a box that need not have the focus.
void PageText::dropEvent(QDropEvent* event)
{
    if (!isReadOnly() && canInsertFromMimeData(event->mimeData()) && !event->mimeData()->text().isEmpty())
        empty_help_text();
    QPlainTextEdit::dropEvent(event);
    if (border_style_ == 1 && !is_blank())
        set_border_style(0);
}

void PageText::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

} // namespace tarnwick
