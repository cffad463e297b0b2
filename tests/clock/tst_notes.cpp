#include "clock/NoteText.h"
#include "clock/Notes.h"
#include "support/AtWindow.h"

#include <QClipboard>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTableView>

using namespace Qt::Literals::StringLiterals;

namespace {

// The window on the screen, while the clock stands at job "O'B" and at 2 March 2026.
struct Notebook : AtWindow
{
    explicit Notebook(const std::vector<Note> &notes = {})
    {
        folder.MakePersonal();
        localDB = dao::Database::OpenDatabase(folder.File(personalFile), std::chrono::milliseconds(1));
        dao::Transaction adding(localDB, {});
        for (const Note &note : notes)
            AddNote(localDB, note);
        adding.Commit();
        Open(form);
    }

    QPlainTextEdit *NewNote() const { return Find<QPlainTextEdit>("NoteText"); }
    QString Status() const { return Text("StatusLabel"); }
    void Save(const QString &text) const
    {
        NewNote()->setPlainText(text);
        Press("SaveButton");
    }
    QString Whole() const { return Find<QPlainTextEdit>("WholeNote")->toPlainText(); }
    QString Current() const // the chosen row, which must be in view, with the whole note beneath
    {
        const auto *grid = Find<QTableView>("NotesGrid");
        const QModelIndex current = grid->currentIndex();
        const bool inView = grid->viewport()->rect().contains(grid->visualRect(current));
        const QString text = current.siblingAtColumn(1).data().toString();
        return inView && Whole() == QString(text).replace(u"\r\n"_s, u"\n"_s) ? text : u"?"_s;
    }
    QStringList Stored()
    {
        QStringList stored;
        for (const Note &note : ReadNotes(localDB))
            stored.append(note.jobID + u'|' + note.text);
        return stored;
    }

    dao::Database localDB;
    Notes form{texts, prompts, localDB, time, u"O'B"_s};
};

std::vector<Note> Many()
{
    std::vector<Note> notes(30, Note{u"A"_s, u"2026.01.01 - often"_s});
    notes[12] = {u"o'b"_s, u"2026.01.02 - first of the job"_s};
    notes[13] = {u"O'B"_s, u"2026.01.03 - second\r\nRØDGRØD 50% off_"_s};
    notes[20].jobID = u"ø"_s;
    notes[29].text = u"2026.02.01 - newest"_s;
    return notes;
}

} // namespace

class TestNotes : public QObject
{
    Q_OBJECT

private slots:
    void StoresNotes_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("stored");
        const QString x(50, u'x');
        const QString smiles = u"😀"_s.repeated(50);
        const QString tall = u"Line one, 100% \"done\"\n\n'; DROP TABLE NotesList; --\n😀 æøå"_s;
        const QString huge = u"long and longer "_s.repeated(6250) + u'.';
        QTest::newRow("50") << u"\n  "_s + x + u"  "_s << u"2026.03.02 - "_s + x;
        QTest::newRow("51") << x + u'y' << u"2026.03.02\r\n"_s + x + u'y';
        QTest::newRow("50 emoji") << smiles << u"2026.03.02 - "_s + smiles;
        QTest::newRow("51 emoji") << smiles + u'.' << u"2026.03.02\r\n"_s + smiles + u'.';
        QTest::newRow("lines, quotes, percent") << tall << u"2026.03.02\r\n"_s + tall;
        QTest::newRow("100,000") << huge << u"2026.03.02\r\n"_s + huge;
    }
    void StoresNotes()
    {
        QFETCH(QString, typed);
        QFETCH(QString, stored);
        Notebook book(Many());
        book.Box("FindText")->setText(u"second"_s);
        book.Box("JobText")->setText(u" D'A \" 7 "_s);
        book.Save(typed);
        QCOMPARE(book.Stored().last(), u"D'A \" 7|"_s + stored);
        QCOMPARE(book.Current(), stored);
        QCOMPARE(book.NewNote()->toPlainText(), QString());
        QCOMPARE(book.form.focusWidget(), book.NewNote());
        book.Save(u" \n\t "_s); // nothing
        QTest::keyClick(book.NewNote(), Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(book.Stored().size(), 31);
        QVERIFY(book.form.close() && book.prompts.messages.isEmpty());
    }

    void FindsNotes()
    {
        const Notebook book(Many());
        auto *job = book.Box("JobText");
        auto *find = book.Box("FindText");
        const auto *grid = book.Find<QTableView>("NotesGrid");
        QCOMPARE(job->text(), u"O'B"_s);
        QCOMPARE(book.Current(), u"2026.01.02 - first of the job"_s);
        QCOMPARE(grid->rowHeight(5), book.NewNote()->height());
        find->setText(u"rødgrød 50% off_"_s);
        QCOMPARE(grid->model()->rowCount(), 1);
        QVERIFY(book.Current().startsWith(u"2026.01.03"));
        find->clear();
        QVERIFY(book.Current().startsWith(u"2026.01.03"));
        find->setText(u"nowhere"_s);
        QVERIFY(!book.Status().isEmpty() && book.Whole().isEmpty());
        find->setFocus();
        QTest::keyClick(find, Qt::Key_Escape);
        QVERIFY(book.form.IsLoaded() && book.Status().isEmpty());
        QCOMPARE(grid->model()->rowCount(), 30);
        job->setFocus();
        job->setText(u"Ø"_s); // not the same as ø, as in the sums
        QTest::keyClick(job, Qt::Key_Return);
        QCOMPARE(book.Current(), u"2026.02.01 - newest"_s);
        QVERIFY(!book.Status().isEmpty());
        QTest::keyClick(job, Qt::Key_Escape);
        QVERIFY(!book.form.IsLoaded());
        const Notebook empty;
        QVERIFY(!empty.Status().isEmpty());
    }

    void LosesNothing()
    {
        Notebook book;
        Holder other(book.folder.File(personalFile));
        book.Save(u"kept"_s);
        QVERIFY(!book.Status().isEmpty());
        QTest::keyClick(book.NewNote(), Qt::Key_Escape); // and back
        QCOMPARE(book.NewNote()->toPlainText(), u"kept"_s);
        QCOMPARE(book.prompts.messages.size(), 1);
        QVERIFY(book.form.IsLoaded());
        other.LetGo();
        book.Press("SaveButton");
        QCOMPARE(book.Status(), QString());
        QCOMPARE(book.Current(), u"2026.03.02 - kept"_s);
        book.NewNote()->setPlainText(u"unfinished"_s);
        QGuiApplication::clipboard()->setMimeData(new QMimeData);
        QTest::keyClick(book.NewNote(), Qt::Key_V, Qt::ControlModifier);
        QString boxes; // what would be kept with the texts of the window
        book.texts.saved = [&](const Form &) { boxes = book.NewNote()->toPlainText() + book.Whole() + book.Status(); };
        book.form.Unload(); // the session ends
        QCOMPARE(book.Stored(), QStringList({u"O'B|2026.03.02 - kept"_s, u"O'B|2026.03.02 - unfinished"_s}));
        QCOMPARE(boxes, QString());
    }

    void AsksAboutAnUnsavedNote()
    {
        for (const auto &[answer, stored, closes] : {std::tuple(0, 1, true), {1, 0, true}, {2, 0, false}}) {
            Notebook book;
            book.NewNote()->setPlainText(u"new"_s);
            book.prompts.choice = answer;
            book.Press("OKButton");
            QCOMPARE(book.Stored().size(), stored);
            QCOMPARE(book.form.IsLoaded(), !closes);
        }
    }

    void DeletesTheChosenNote()
    {
        Notebook book({{u"A"_s, u"first"_s}, {u"A"_s, u"twin"_s}, {u"A"_s, u"twin"_s}, {u"B"_s, u"last"_s}});
        auto *grid = book.Find<QTableView>("NotesGrid");
        const auto pressDelete = [&](int row) {
            grid->setFocus();
            grid->selectRow(row);
            QTest::keyClick(grid, Qt::Key_Delete);
            return book.Stored();
        };
        book.Box("FindText")->setText(u"tw"_s);
        QCOMPARE(pressDelete(1), QStringList({u"A|first"_s, u"A|twin"_s, u"B|last"_s}));
        QCOMPARE(book.Current(), u"twin"_s);
        QVERIFY(book.prompts.messages.last().contains(u"twin"_s));
        book.prompts.yes = false;
        QCOMPARE(pressDelete(0).size(), 3);
        book.prompts.yes = true;
        Holder other(book.folder.File(personalFile));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"deleting a note"_s));
        grid->selectRow(0);
        QTest::keyClick(grid, Qt::Key_Delete);
        QVERIFY(!book.Status().isEmpty() && grid->model()->rowCount() == 1);
        other.LetGo();
        pressDelete(0);
        QVERIFY(book.Whole().isEmpty() && book.Stored().size() == 2);
    }
};

QTEST_MAIN(TestNotes)
#include "tst_notes.moc"
