#include "widgets/node_key.h"

#include <QTest>

using namespace tarnwick;

class tst_node_key : public QObject {
    Q_OBJECT
private slots:
    void kind_and_record_come_from_the_text_data();
    void kind_and_record_come_from_the_text();
    void a_text_of_another_form_stands_for_nothing_data();
    void a_text_of_another_form_stands_for_nothing();
};

void tst_node_key::kind_and_record_come_from_the_text_data()
{
    QTest::addColumn<NodeKind>("kind");
    QTest::addColumn<Key>("record");
    QTest::newRow("item0017") << NodeKind::item << Key{17};
    QTest::newRow("item9999") << NodeKind::item << Key{9999};
    QTest::newRow("cat0000") << NodeKind::category << Key{0};
    QTest::newRow("cat0230") << NodeKind::category << Key{230};
    QTest::newRow("rcp9999") << NodeKind::recipe << Key{9999};
    QTest::newRow("rcat04") << NodeKind::recipe_category << Key{4};
}

void tst_node_key::kind_and_record_come_from_the_text()
{
    QFETCH(NodeKind, kind);
    QFETCH(Key, record);
    const QString text = QString::fromLatin1(QTest::currentDataTag());
    const NodeKey key = NodeKey::parse(text);
    QCOMPARE(key.kind, kind);
    QCOMPARE(key.record, record);
    QCOMPARE(key.text(), text);
}

void tst_node_key::a_text_of_another_form_stands_for_nothing_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"", "7", "ns", "0017"})
        QTest::addRow("'%s'", text) << QString::fromLatin1(text);
}

void tst_node_key::a_text_of_another_form_stands_for_nothing()
{
    QFETCH(QString, text);
    QCOMPARE(NodeKey::parse(text).kind, NodeKind::none);
    QVERIFY(NodeKey::parse(text).text().isEmpty());
}

QTEST_APPLESS_MAIN(tst_node_key)
#include "tst_node_key.moc"
