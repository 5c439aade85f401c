#pragma once

#include "data/text.h"

#include <QObject>
#include <QString>

#include <optional>

namespace tarnwick {

class RecipePage;
struct CategoryChange;
struct IngredientLine;
struct ItemChange;
struct ItemCodes;
struct ItemsGone;
struct Program;
enum class EditMode;
enum class LineTip;
enum class StatusCode;

/// What the lines of the recipe page have to do with stock: their check boxes, and the lights and tool tips that
/// follow what happens to their items. What reads or writes throws SQLite::Exception.
class LineStock : public QObject {
    Q_OBJECT
public:
    LineStock(Program& program, RecipePage& page);

    /// State 1 marks the line's stock item to buy on all lists, 0 clears it, others only refresh. An item that is
    /// on no list opens the item editor.
    void recipe_chck(int to_state, Key line_key);

    /// Opens the item editor for a line's stock item; -1 for one that is yet to be made.
    void edit_item(EditMode mode, Key item, Key line_key);

    // Each shows on the lines what an operation did, whether the page is on show or not.
    void item_changed(const ItemChange& change);
    void items_gone(const ItemsGone& gone); ///< their lines become non-stock
    void category_changed(const CategoryChange& change); ///< the words of its items' lines name it

private:
    void check_clicked(int index);
    void show_item(const ItemCodes& codes, LineTip tip);
    void follow_links(const ItemCodes& codes, const QString& joint);
    void follow_name(const ItemCodes& codes);
    void show_line(int index, Key item, std::optional<StatusCode> code, const QString& tool_tip);
    int count() const;
    IngredientLine& line(int index);

    Program& program_;
    RecipePage& page_;
};

} // namespace tarnwick
