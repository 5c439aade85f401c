#include "app/application.h"

#include <QMessageBox>
#include <QPushButton>
#include <QProxyStyle>
#include <QTest>

using namespace tarnwick;

namespace {

/// A desktop that wants pictures on the buttons of its dialogs.
class PicturesOnButtons : public QProxyStyle {
public:
    PicturesOnButtons()
        : QProxyStyle(QStringLiteral("Fusion"))
    {
    }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override
    {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons ? 1 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

bool has_picture()
{
    QMessageBox box;
    return !box.addButton(QMessageBox::Cancel)->icon().isNull();
}

} // namespace

class tst_application : public QObject {
    Q_OBJECT
private slots:
    void buttons_of_message_boxes_have_no_pictures_on_a_desktop_that_wants_them();
};

void tst_application::buttons_of_message_boxes_have_no_pictures_on_a_desktop_that_wants_them()
{
    QVERIFY(!has_picture());
    auto* style = qobject_cast<QProxyStyle*>(QApplication::style());
    QVERIFY(style);
    style->setBaseStyle(new PicturesOnButtons);
    QVERIFY(!has_picture());
    QApplication::setStyle(new PicturesOnButtons);
    QVERIFY(has_picture());
}

int main(int argc, char** argv)
{
    Application app(argc, argv);
    tst_application test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_application.moc"
