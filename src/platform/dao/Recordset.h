#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantList>

#include <optional>

namespace dao {

class Database;

// A cursor over the rows of a table or of a SELECT, in the words of DAO. Opening reads nothing of the rows; the first
// move reads them all, to the end, into memory, so no lock outlives a call. On a table, rows are edited and deleted by
// their Id, and Seek asks the file. Field names are matched without regard to case. Every operation throws dao::Error;
// reading a field that does not exist gives an invalid QVariant, writing one is ignored.
//
// It must not outlive its Database.
class Recordset
{
public:
    Recordset(); // closed
    ~Recordset();
    Recordset(Recordset &&other) noexcept;
    Recordset &operator=(Recordset &&other) noexcept;

    bool IsOpen() const { return database_ != nullptr; }
    void Close();
    void Requery(); // forgets the rows read; the next move reads them anew

    // Tables only: the order of the rows, and the key of Seek. Throws when the table has no such index.
    void Index(const QString &name);
    // Positions on the first row whose index key equals `key`; NoMatch() tells.
    void Seek(const QVariant &key);
    bool NoMatch() const { return noMatch_; }

    void MoveFirst(); // on an empty record set Eof() becomes true
    void MoveLast();
    void MoveNext();
    bool Eof() const; // also before the first move and when nothing is current
    int RecordCount();

    QStringList FieldNames() const { return fields_; }
    bool HasField(const QString &name) const;
    QVariant Field(const QString &name) const;

    void AddNew();                                          // begins a new row
    void Edit();                                            // begins to edit the current row
    void SetField(const QString &name, const QVariant &value); // between AddNew or Edit and Update
    void Update();                                          // writes it; a new row becomes the current one
    void Delete();                                          // deletes the current row

private:
    friend class Database;
    Recordset(Database &database, const QString &tableOrSelect);
    void Read();

    enum class Editing { Nothing, NewRow, CurrentRow };

    Database *database_ = nullptr;
    QString table_;  // empty for a SELECT
    QString select_; // the statement that reads the rows, without its order
    QString indexField_;
    QStringList fields_;
    std::optional<QList<QVariantList>> rows_; // nothing until read
    qsizetype position_ = -1;
    std::optional<QVariantList> current_; // the row under the cursor
    QVariantList edited_;
    Editing editing_ = Editing::Nothing;
    bool noMatch_ = true;
};

} // namespace dao
