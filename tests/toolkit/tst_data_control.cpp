// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/grid_fixture.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand;
using store::EditMode;
using store::Error;
using tests::errorOf;
using tests::GridFixture;
using tests::ScratchDatabase;
using toolkit::DataControl;
using toolkit::DataDropDown;

class TestDataControl final : public QObject
{
    Q_OBJECT

    ScratchDatabase m_file;
    std::unique_ptr<DataControl> m_control;

private Q_SLOTS:
    void initTestCase() { m_file.fill(300); }
    void init()
    {
        m_control = std::make_unique<DataControl>();
        m_control->setDatabaseName(m_file.path());
        m_control->setRecordSource(u"qryItem"_s);
    }
    void cleanup() { m_control.reset(); }

    void nothingIsThereBeforeTheFirstRefresh()
    {
        QVERIFY(!m_control->isOpen());
        QCOMPARE(errorOf([&] { m_control->Recordset(); }), 91);
        QCOMPARE(errorOf([&] { m_control->Database(); }), 91);
        QCOMPARE(m_control->EditMode(), EditMode::None);
    }

    void refreshStandsOnTheFirstRecordAndTellsInOrder()
    {
        QStringList told;
        connect(m_control.get(), &DataControl::refreshed, this, [&] { told << u"refreshed"_s; });
        connect(m_control.get(), &DataControl::reposition, this, [&] { told << u"reposition"_s; });
        m_control->Refresh();
        QCOMPARE(told, (QStringList{u"refreshed"_s, u"reposition"_s}));
        QCOMPARE(m_control->Recordset().Field(u"Tag"_s).text(), u"PT-00001"_s);
    }

    void settingsTakeEffectAtRefreshOnly()
    {
        m_control->Refresh();
        m_control->setRecordSource(u"select * from qryItem order by Size"_s);
        QCOMPARE(m_control->Recordset().Field(u"Tag"_s).text(), u"PT-00001"_s);
        m_control->setRecordSource(u"select * from qryItem where Size > 100"_s);
        m_control->Refresh();
        QCOMPARE(m_control->Recordset().Field(u"Tag"_s).text(), u"PT-00101"_s);
    }

    void refreshDoesNotReadAllKeys()
    {
        m_control->Refresh();
        QVERIFY(!m_control->Recordset().allKeysRead());
    }

    void anEditInTheRecordsetForbidsRefresh()
    {
        m_control->Refresh();
        m_control->Recordset().Edit();
        QCOMPARE(errorOf([&] { m_control->Refresh(); }), 444);
        QCOMPARE(m_control->EditMode(), EditMode::InProgress);
        m_control->cancelEdit();
        QCOMPARE(errorOf([&] { m_control->Refresh(); }), 0);
    }

    void aRowUnderEditInTheGridForbidsRefresh()
    {
        m_control->Refresh();
        bool pending = true;
        m_control->bindRow({}, [&] { return pending; });
        QCOMPARE(errorOf([&] { m_control->Refresh(); }), 444);
        pending = false;
        QCOMPARE(errorOf([&] { m_control->Refresh(); }), 0);
    }

    void aFailedRefreshLeavesEverythingAsItWas()
    {
        m_control->Refresh();
        m_control->Recordset().MoveNext();
        QSignalSpy refreshed(m_control.get(), &DataControl::refreshed);
        m_control->setRecordSource(u"nothing"_s);
        QCOMPARE(errorOf([&] { m_control->Refresh(); }), 3078);
        m_control->setDatabaseName(m_file.path(u"missing.mdb"_s));
        QCOMPARE(errorOf([&] { m_control->Refresh(); }), 3024);
        QCOMPARE(refreshed.count(), 0);
        QCOMPARE(m_control->Recordset().Field(u"Tag"_s).text(), u"PT-00002"_s);
    }

    void everyMoveIsToldWhoeverMakesIt()
    {
        m_control->Refresh();
        QSignalSpy moved(m_control.get(), &DataControl::reposition);
        m_control->Recordset().MoveNext();
        m_control->Recordset().MoveLast();
        QCOMPARE(moved.count(), 2);
    }

    void updateRecordNeedsAnEdit()
    {
        m_control->Refresh();
        QCOMPARE(errorOf([&] { m_control->UpdateRecord(); }), 3020);
    }

    void updateRecordWritesTheRecordUnderEdit()
    {
        m_control->Refresh();
        m_control->Recordset().Edit();
        m_control->Recordset().SetField(u"Service"_s, u"steam"_s);
        m_control->UpdateRecord();
        QCOMPARE(m_control->EditMode(), EditMode::None);
        QCOMPARE(m_control->Recordset().Field(u"Service"_s).text(), u"steam"_s);
    }

    void validationTellsTheActionAndMayKeepTheRecordFromBeingWritten()
    {
        m_control->Refresh();
        std::vector<DataControl::Action> actions;
        connect(m_control.get(),
                &DataControl::validate,
                this,
                [&](DataControl::Action action, bool& save, const std::optional<Error>& pending) {
                    QVERIFY(!pending);
                    actions.push_back(action);
                    save = false;
                });
        m_control->Recordset().AddNew();
        m_control->Recordset().SetField(u"Tag"_s, u"PT-9"_s);
        m_control->UpdateRecord();
        QCOMPARE(m_control->EditMode(), EditMode::Add);
        m_control->cancelEdit();
        m_control->Recordset().Edit();
        m_control->UpdateRecord();
        QCOMPARE(m_control->EditMode(), EditMode::InProgress);
        QVERIFY((actions == std::vector{DataControl::Action::Add, DataControl::Action::Update}));
    }

    void aRecordThatIsGoneStandsAsErrorInValidation()
    {
        m_file.run("INSERT INTO item VALUES ('AA', 'x', 1)");
        m_control->Refresh();
        int number = 0;
        connect(m_control.get(),
                &DataControl::validate,
                this,
                [&](DataControl::Action, bool&, const std::optional<Error>& pending) {
                    number = pending ? pending->number() : 0;
                });
        m_control->Recordset().Edit();
        m_file.run("DELETE FROM item WHERE tag = 'AA'");
        QCOMPARE(errorOf([&] { m_control->UpdateRecord(); }), 3167);
        QCOMPARE(number, 3167);
        QCOMPARE(m_control->EditMode(), EditMode::InProgress);
    }

    void anEditThatCannotStartIsReportedWhenTheRecordIsToBeWritten()
    {
        m_control->setRecordSource(u"select distinct Service from qryItem"_s);
        m_control->Refresh();
        QVERIFY(!m_control->startEdit(DataControl::Action::Update));
        QVERIFY(!m_control->validateAction(DataControl::Action::Update));
        QCOMPARE(m_control->pendingError()->number(), 3027);
        m_control->cancelEdit();
        QVERIFY(!m_control->validateAction(DataControl::Action::Add));
        QCOMPARE(m_control->pendingError()->number(), 3027);
    }

    void aReadOnlyControlTakesNoEdits()
    {
        m_control->setReadOnly(true);
        m_control->Refresh();
        QCOMPARE(errorOf([&] { m_control->Recordset().Edit(); }), 3027);
    }

    void aDropDownReadsItsValuesWhenItIsAskedAndOncePerRefresh()
    {
        DataDropDown list;
        list.setDataControl(m_control.get());
        list.setListField(u"Service"_s);
        QVERIFY(list.values().isEmpty());
        m_control->Refresh();
        QVERIFY(!m_control->Recordset().allKeysRead());
        QCOMPARE(list.values().size(), 300);
        QCOMPARE(list.values().at(1), u"service 2"_s);
        m_file.run("UPDATE item SET service = 'late' WHERE tag = 'PT-00002'");
        QCOMPARE(list.values().at(1), u"service 2"_s);
        m_control->Refresh();
        QCOMPARE(list.values().at(1), u"late"_s);
    }
};

QTEST_MAIN(TestDataControl)
#include "tst_data_control.moc"
