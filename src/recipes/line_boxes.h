#pragma once

#include "household/line_draft.h"

#include <QFont>
#include <QObject>
#include <QRect>
#include <QString>

#include <array>
#include <optional>

class QWidget;

namespace tarnwick {

class CellBox;
class EndFrame;
class PictureButton;

/// The four text boxes over an ingredient line, with pencil and cross beside them: what they show, how they look
/// and where they stand.
class LineBoxes : public QObject {
    Q_OBJECT
public:
    /// The boxes lie on the page; all their events and those of the two buttons pass through the filter.
    LineBoxes(QWidget& page, QObject& filter);

    CellBox& edit(IngredientField field) const { return *boxes_[static_cast<size_t>(field)].edit; }
    PictureButton& imgedit();
    PictureButton& imgScratch();

    std::optional<IngredientField> field_of(const QObject* widget) const; ///< nothing for other widgets
    bool is_button(const QObject* widget) const;

    QString text(IngredientField field) const; ///< trimmed; empty for a placeholder
    bool is_placeholder(IngredientField field) const;

    /// Shows a text, or the placeholder for an empty one; `typed` is not emitted.
    void show_text(IngredientField field, const QString& text);

    void show_empty(IngredientField field); ///< ready for typing
    void set_tag(IngredientField field, const QString& text);

    /// Shows the boxes on a page of this colour, or hides them with their buttons.
    void show(const QColor& page);
    void hide();

    /// Places them over a line in pixels of the page, which is so wide, for a type size and the page's font.
    void place(const QRect& line, int page_width, int type_size, const QFont& font);

signals:
    void typed(IngredientField field); ///< the text was changed
    void edit_clicked();
    void scratch_clicked();

private:
    struct Box {
        CellBox* edit;
        QString placeholder;
    };

    void make_buttons();
    const Box& box(IngredientField field) const { return boxes_[static_cast<size_t>(field)]; }
    void set_text(IngredientField field, const QString& text, const QColor& color);
    QFont box_font(IngredientField field) const;
    void set_ingred_font();
    std::array<int, 4> box_widths(int room, int type_size) const;

    QWidget& page_;
    QObject& filter_;
    std::array<Box, 4> boxes_{};
    QFont font_;
    EndFrame* end_frame_ = nullptr;
    PictureButton* imgedit_ = nullptr;
    PictureButton* imgScratch_ = nullptr;
    bool filling_ = false; ///< texts are being shown, not typed
};

} // namespace tarnwick
