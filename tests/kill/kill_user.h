#pragma once

#include "kill/kill_model.h"

#include <QObject>
#include <QRandomGenerator>

class QDialog;

namespace tarnwick {
class frmmain;
}

namespace tarnwick::kill {

/// A user at the main window who places, ticks, makes and deletes without end, and notes every operation in a log
/// that survives the process. Message boxes are answered with Yes.
class User : public QObject {
    Q_OBJECT
public:
    User(frmmain& main, quint32 seed, const QString& log_file);
    ~User() override;

    void work(); ///< one operation, then the next from the event loop

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void operate();
    void place();
    void tick();
    void delete_list();
    void make_list();
    void command(const QString& name);
    void answer(QDialog& dialog);
    void note(const QString& line);
    [[noreturn]] void give_up(const QString& why);

    frmmain& main_;
    QRandomGenerator random_;
    int log_;
    int names_ = 0;
};

} // namespace tarnwick::kill
