#pragma once

#include <QObject>
#include <QTimer>

namespace tarnwick {

/// The wait after a click on the label of a selected node: when no double click comes of it and nothing else
/// is done, the label is edited. Whatever the user presses meanwhile, on the mouse or the keyboard and on any
/// control, calls it off.
class SecondClick : public QObject {
    Q_OBJECT
public:
    explicit SecondClick(QObject* parent);

    void start(); ///< waits as long as a double click may take
    void stop();

signals:
    void came(); ///< the wait is over, and no popup or dialog is open

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void time_out();

    QTimer timer_;
};

} // namespace tarnwick
