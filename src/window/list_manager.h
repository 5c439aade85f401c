#pragma once

#include "data/text.h"

#include <QObject>
#include <QPointer>
#include <QRect>

namespace tarnwick {

class Commands;
class Drag;
class ViewState;
class list_list;
struct Panes;
struct Program;

/// The list manager beside the main window. Until the end of the run it comes back where it was closed, in the same
/// size.
class ListManager : public QObject {
    Q_OBJECT
public:
    ListManager(Program& program, const Panes& panes, Drag& drag, Commands& commands, ViewState& view_state);

    void toggle(); ///< opens it, or closes it when it is open

private:
    void open();
    void connect_manager();
    void place();
    void show_list(Key list);
    void make_list();
    void mark_list();
    void take_looks();
    void drop_item(Key item, Key list);
    void write(const char* key, const QString& value);

    Program& program_;
    const Panes& panes_;
    Drag& drag_;
    Commands& commands_;
    ViewState& view_state_;
    QPointer<list_list> manager_;
    QRect kept_place_;
};

} // namespace tarnwick
