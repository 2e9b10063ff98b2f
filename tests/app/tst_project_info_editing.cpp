// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/project_info_desk.h"
#include "toolkit/data_control.h"

#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::tests::ProgramFixture;
using ostrand::tests::ProjectInfoDesk;
using ostrand::toolkit::BoxIcon;

class TestProjectInfoEditing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_desk = std::make_unique<ProjectInfoDesk>(); }
    void cleanup() { m_desk.reset(); }

    void aValueIsTypedAndWrittenBySave();
    void aValueIsWrittenWhenItsRowIsLeft();
    void aNewAttributeIsAdded();
    void anAttributeOfTheUsersIsRenamed();
    void anAttributeOfTheProgramsIsNotRenamed();
    void saveWithARenamedAttributeOfTheProgramsIsRefused();
    void saveWithNothingPendingIsTold();
    void saveInAnEmptyProjectIsTold();
    void anAttributeWithoutANameIsRefused();
    void escapeDropsTheRowFromAButtonToo();
    void aFailureOfTheRowIsToldByTheWindowAlone();
    void aNameThatExistsIsToldBySave();
    void aNameThatExistsIsNotToldWhenTheRowIsLeft();
    void aLockedProjectIsToldBySave();
    void aDeletionInALockedProjectIsTold();
    void whatKeepsARecordFromBeingWrittenIsTold();
    void anAttributeThatAnotherProgramDeletedIsTold();

    void deletingAnAttributeOfTheProgramsIsRefused();
    void deletingAsksFirst();
    void aDeletedAttributeLeavesTheOneBefore();
    void deletingANewRowDropsIt();
    void deletingWithoutAnyAttributeDoesNothing();
    void aFailedDeletionIsTold();
    void selectedRowsAreNotDeletedByTheirKey();

private:
    std::unique_ptr<ProjectInfoDesk> m_desk;
};

// ---- writing

void TestProjectInfoEditing::aValueIsTypedAndWrittenBySave()
{
    m_desk->open([this] {
        m_desk->goTo(u"plant"_s);
        m_desk->type(u"Heronsfield"_s);
        m_desk->press(u"cmdSave"_s);
        QCOMPARE(m_desk->stored(u"plant"_s), u"Heronsfield"_s);
        QVERIFY(!m_desk->grid().rowPending());
    });
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestProjectInfoEditing::aValueIsWrittenWhenItsRowIsLeft()
{
    m_desk->open([this] {
        m_desk->goTo(u"plant"_s);
        m_desk->type(u"Heronsfield"_s);
        m_desk->key(Qt::Key_Up);
        QCOMPARE(m_desk->stored(u"plant"_s), u"Heronsfield"_s);
    });
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestProjectInfoEditing::aNewAttributeIsAdded()
{
    m_desk->open([this] {
        m_desk->goToNewRow();
        m_desk->type(u"client"_s);
        m_desk->key(Qt::Key_Tab);
        m_desk->type(u"Brevane"_s);
        m_desk->press(u"cmdSave"_s);
        QCOMPARE(m_desk->stored(u"client"_s), u"Brevane"_s);
        QCOMPARE(ProgramFixture::value(
                     m_desk->project,
                     u"select static from ProjectInfo where attributeName = 'client'"_s),
                 u"0"_s);
    });
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestProjectInfoEditing::anAttributeOfTheUsersIsRenamed()
{
    m_desk->add(u"client"_s, u"Brevane"_s);
    m_desk->open([this] {
        m_desk->goTo(u"client"_s, app::infoColumn::name);
        m_desk->type(u"customer"_s);
        m_desk->press(u"cmdSave"_s);
        QCOMPARE(m_desk->stored(u"customer"_s), u"Brevane"_s);
        QCOMPARE(m_desk->stored(u"client"_s), u"(none)"_s);
    });
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestProjectInfoEditing::anAttributeOfTheProgramsIsNotRenamed()
{
    m_desk->open([this] {
        // Of those that the program uses, the template spells this one so that it can be typed on.
        m_desk->goTo(u"Logo file"_s, app::infoColumn::name);
        m_desk->type(u"picture"_s);
        m_desk->key(Qt::Key_Tab);
        m_desk->expectNotice(u"This property's name cannot be edited. It is used by program."_s);
        QCOMPARE(m_desk->cell(app::infoColumn::name), u"Logo file"_s);
        QVERIFY(!m_desk->grid().rowPending());
    });
    QCOMPARE(m_desk->stored(u"picture"_s), u"(none)"_s);
}

void TestProjectInfoEditing::saveWithARenamedAttributeOfTheProgramsIsRefused()
{
    m_desk->open([this] {
        m_desk->goTo(u"Logo file"_s, app::infoColumn::name);
        m_desk->type(u"picture"_s);
        // The key leaves the cell open.
        m_desk->pressByKey(u"cmdSave"_s);
        m_desk->expectNotice(u"This property's name cannot be edited. It is used by program."_s);
        QCOMPARE(m_desk->stored(u"picture"_s), u"(none)"_s);
        m_desk->grid().cancelRow();
    });
}

void TestProjectInfoEditing::saveWithNothingPendingIsTold()
{
    m_desk->open([this] {
        m_desk->press(u"cmdSave"_s);
        m_desk->expectFailure(u"Save cannot succeed without addnew or delete operation"_s);
    });
}

void TestProjectInfoEditing::saveInAnEmptyProjectIsTold()
{
    ProgramFixture::execute(m_desk->project, u"delete from ProjectInfo"_s);
    m_desk->open([this] {
        m_desk->press(u"cmdSave"_s);
        m_desk->expectFailure(u"Error while validating index title data .\r\n3021 : "_s);
    });
}

void TestProjectInfoEditing::anAttributeWithoutANameIsRefused()
{
    m_desk->open([this] {
        m_desk->goToNewRow(app::infoColumn::value);
        m_desk->type(u"a value"_s);
        m_desk->press(u"cmdSave"_s);
        m_desk->expectFailure(u"Property column should not be null\r\nor press escape to cancel"_s);
        QVERIFY(m_desk->grid().rowPending());
        m_desk->grid().setFocus();
        m_desk->key(Qt::Key_Up);
        m_desk->expectFailure(u"Property column should not be null\r\nor press escape to cancel"_s);
        QVERIFY(m_desk->grid().rowPending());
        m_desk->key(Qt::Key_Escape);
        QVERIFY(!m_desk->grid().rowPending());
        QVERIFY(m_desk->window.isVisible());
    });
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestProjectInfoEditing::escapeDropsTheRowFromAButtonToo()
{
    m_desk->open([this] {
        m_desk->goToNewRow(app::infoColumn::value);
        m_desk->type(u"a value"_s);
        auto* exit = m_desk->window.findChild<QPushButton*>(u"cmdExit"_s);
        exit->setFocus();
        m_desk->press(u"cmdExit"_s);
        m_desk->expectFailure(u"Property column should not be null\r\nor press escape to cancel"_s);
        QTest::keyClick(exit, Qt::Key_Escape);
        QVERIFY(!m_desk->grid().rowPending());
        QVERIFY(m_desk->window.isVisible());
        m_desk->press(u"cmdExit"_s);
        QVERIFY(!m_desk->window.isVisible());
    });
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestProjectInfoEditing::aFailureOfTheRowIsToldByTheWindowAlone()
{
    m_desk->add(u"client"_s, u"Brevane"_s);
    m_desk->open([this] {
        m_desk->goTo(u"client"_s, app::infoColumn::name);
        m_desk->key(Qt::Key_Delete);
        QCOMPARE(m_desk->cell(app::infoColumn::name), QString());
        m_desk->press(u"cmdSave"_s);
        m_desk->expectFailure(u"Property column should not be null\r\nor press escape to cancel"_s);
        m_desk->grid().cancelRow();
    });
    QCOMPARE(m_desk->stored(u"client"_s), u"Brevane"_s);
}

void TestProjectInfoEditing::aNameThatExistsIsToldBySave()
{
    m_desk->open([this] {
        m_desk->goToNewRow();
        m_desk->type(u"PLANT"_s);
        m_desk->press(u"cmdSave"_s);
        m_desk->expectFailure(u"Error while saving index title data .\r\n3022 : "_s);
        QVERIFY(m_desk->grid().rowPending());
        m_desk->grid().cancelRow();
    });
}

void TestProjectInfoEditing::aNameThatExistsIsNotToldWhenTheRowIsLeft()
{
    m_desk->open([this] {
        m_desk->goToNewRow();
        m_desk->type(u"plant"_s);
        m_desk->key(Qt::Key_Up);
        QVERIFY(m_desk->grid().rowPending());
        QCOMPARE(m_desk->texts(), QStringList());
        m_desk->grid().cancelRow();
    });
}

void TestProjectInfoEditing::aLockedProjectIsToldBySave()
{
    tests::OtherProgram other(m_desk->project);
    m_desk->open([&] {
        m_desk->goTo(u"plant"_s);
        m_desk->type(u"x"_s);
        other.run("BEGIN IMMEDIATE");
        m_desk->press(u"cmdSave"_s);
        m_desk->expectFailure(u"Error while saving index title data .\r\n3260 : "_s);
        QVERIFY(m_desk->grid().rowPending());
        other.run("ROLLBACK");
        m_desk->press(u"cmdSave"_s);
        QCOMPARE(m_desk->stored(u"plant"_s), u"x"_s);
    });
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestProjectInfoEditing::aDeletionInALockedProjectIsTold()
{
    m_desk->add(u"client"_s, u"Brevane"_s);
    tests::OtherProgram other(m_desk->project);
    m_desk->prompts.answers = {toolkit::Answer::Yes};
    m_desk->open([&] {
        m_desk->goTo(u"client"_s);
        other.run("BEGIN IMMEDIATE");
        m_desk->press(u"cmdDelete"_s);
        const QStringList told = m_desk->texts();
        QCOMPARE(told.size(), 2);
        QCOMPARE(told[0], u"Are you sure you want to delete attribute client?"_s);
        QVERIFY2(told[1].startsWith(
                     u"Error while deleting attribute for instrument index title.\r\n3260 : "_s),
                 qPrintable(told[1]));
        other.run("ROLLBACK");
    });
    QCOMPARE(m_desk->stored(u"client"_s), u"Brevane"_s);
}

void TestProjectInfoEditing::whatKeepsARecordFromBeingWrittenIsTold()
{
    m_desk->open([&] {
        m_desk->data().setRecordSource(u"select distinct * from qryProjectInfo"_s);
        m_desk->press(u"cmdRefresh"_s);
        QVERIFY(!m_desk->data().validateAction(toolkit::DataControl::Action::Add));
        m_desk->expectFailure(u"3027 : Error while  adding a record. "_s);
        m_desk->grid().setFocus();
        m_desk->grid().setCurrentIndex(m_desk->grid().model()->index(0, app::infoColumn::value));
        QCOMPARE(m_desk->cell(app::infoColumn::name), u"plant"_s);
        m_desk->type(u"x"_s);
        m_desk->key(Qt::Key_Down);
        QCOMPARE(m_desk->texts().filter(u" : Error while  modifying record. "_s).size(), 1);
        m_desk->grid().cancelRow();
        m_desk->prompts.answers = {toolkit::Answer::Yes};
        m_desk->press(u"cmdDelete"_s);
        QCOMPARE(m_desk->texts().filter(u" : Error while  deleting a record. "_s).size(), 1);
    });
}

void TestProjectInfoEditing::anAttributeThatAnotherProgramDeletedIsTold()
{
    m_desk->add(u"client"_s, u"Brevane"_s);
    m_desk->open([&] {
        m_desk->goTo(u"client"_s);
        m_desk->type(u"x"_s);
        ProgramFixture::execute(m_desk->project,
                                u"delete from ProjectInfo where attributeName = 'client'"_s);
        m_desk->key(Qt::Key_Up);
        const QStringList told = m_desk->texts();
        QCOMPARE(told.filter(u"Error while checking if Instrument Index Information attribute is "
                             u"static.\r\n3167 : "_s)
                     .size(),
                 1);
        QCOMPARE(told.filter(u"Error while validating index title data .\r\n3167 : "_s).size(), 1);
        QVERIFY(!m_desk->grid().rowPending());
    });
    QCOMPARE(m_desk->stored(u"client"_s), u"(none)"_s);
}

// ---- deleting

void TestProjectInfoEditing::deletingAnAttributeOfTheProgramsIsRefused()
{
    m_desk->open([this] {
        m_desk->goTo(u"DefaultDatasheetFolder"_s);
        m_desk->press(u"cmdDelete"_s);
        m_desk->expectNotice(u"This property cannot be deleted. It is used by program."_s);
    });
    QCOMPARE(m_desk->stored(u"DefaultDatasheetFolder"_s), u"(null)"_s);
}

void TestProjectInfoEditing::deletingAsksFirst()
{
    m_desk->open([this] {
        m_desk->goTo(u"plant"_s);
        m_desk->prompts.answers = {toolkit::Answer::No};
        m_desk->press(u"cmdDelete"_s);
        QVERIFY(m_desk->prompts.boxes.at(0).icon == BoxIcon::Question);
        QVERIFY(m_desk->prompts.boxes.at(0).buttons == toolkit::BoxButtons::YesNo);
        QCOMPARE(m_desk->texts(),
                 QStringList{u"Are you sure you want to delete attribute plant?"_s});
        QCOMPARE(m_desk->stored(u"plant"_s), u"(null)"_s);
    });
}

void TestProjectInfoEditing::aDeletedAttributeLeavesTheOneBefore()
{
    m_desk->open([this] {
        m_desk->goTo(u"plant"_s);
        const int row = m_desk->grid().currentIndex().row();
        QVERIFY(row > 0);
        m_desk->prompts.answers = {toolkit::Answer::Yes};
        m_desk->press(u"cmdDelete"_s);
        QCoreApplication::processEvents();
        QCOMPARE(m_desk->stored(u"plant"_s), u"(none)"_s);
        QVERIFY(m_desk->cell(0) != u"plant"_s);
        QVERIFY(!m_desk->cell(0).isEmpty());
        QCOMPARE(m_desk->data().Recordset().Field(u"attributeName"_s).text(), m_desk->cell(0));
    });
}

void TestProjectInfoEditing::deletingANewRowDropsIt()
{
    m_desk->open([this] {
        const QString before =
            ProgramFixture::value(m_desk->project, u"select count(*) from ProjectInfo"_s);
        m_desk->goToNewRow();
        m_desk->type(u"client"_s);
        m_desk->prompts.answers = {toolkit::Answer::Yes};
        m_desk->press(u"cmdDelete"_s);
        QCOMPARE(m_desk->texts(),
                 QStringList{u"Are you sure you want to delete attribute client?"_s});
        QVERIFY(!m_desk->grid().rowPending());
        QCOMPARE(ProgramFixture::value(m_desk->project, u"select count(*) from ProjectInfo"_s),
                 before);
    });
}

void TestProjectInfoEditing::deletingWithoutAnyAttributeDoesNothing()
{
    ProgramFixture::execute(m_desk->project, u"delete from ProjectInfo"_s);
    m_desk->open([this] {
        m_desk->press(u"cmdDelete"_s);
        QCOMPARE(m_desk->texts(), QStringList());
    });
}

void TestProjectInfoEditing::aFailedDeletionIsTold()
{
    m_desk->window.show();
    m_desk->press(u"cmdDelete"_s);
    m_desk->expectFailure(u"Error while deleting attribute for instrument index title.\r\n91 : "_s);
    m_desk->window.hide();
}

void TestProjectInfoEditing::selectedRowsAreNotDeletedByTheirKey()
{
    m_desk->add(u"client"_s, u"Brevane"_s);
    m_desk->open([this] {
        m_desk->goTo(u"client"_s, app::infoColumn::name);
        m_desk->key(Qt::Key_Space, Qt::ShiftModifier);
        QCOMPARE(m_desk->grid().SelBookmarks().size(), std::size_t{1});
        m_desk->key(Qt::Key_Delete);
        QCOMPARE(m_desk->texts(), QStringList());
    });
    QCOMPARE(m_desk->stored(u"client"_s), u"Brevane"_s);
}

QTEST_MAIN(TestProjectInfoEditing)
#include "tst_project_info_editing.moc"
