#pragma once

#include "catalogue.h"

#include "window/frmmain.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"

#include <QApplication>

#include <memory>

namespace tarnwick::bench {

/// The main window on a made-up database, loaded and painted.
class Window {
public:
    explicit Window(const Counts& counts)
        : catalogue_(counts)
        , main_(std::make_unique<frmmain>(catalogue_.environment()))
    {
        main_->load();
        settle();
    }

    frmmain* operator->() { return main_.get(); }
    frmmain& main() { return *main_; }
    ListGrid& grid() { return main_->list_pane().grid(); }
    static void settle() { QApplication::processEvents(); }

private:
    Catalogue catalogue_;
    std::unique_ptr<frmmain> main_;
};

/// Steps through a query and takes every value of every row, texts as the program keeps them. The
/// parameter, if there is one, is the key.
void take_all(Connection& connection, const char* sql, int key = 0);

} // namespace tarnwick::bench
