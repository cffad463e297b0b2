#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantList>

#include <optional>

namespace dao {

class Database;

// A cursor over the rows of a table, in the words of DAO. Opening reads nothing of the rows; the first move reads them all, to
// the end, into memory, so no lock outlives a call. Rows are edited and deleted by their Id, and Seek asks the file. Field names are matched without regard to case. Every operation throws dao::Error;
// reading a field that does not exist, or where no row is current, gives an invalid QVariant, writing one is ignored.
//
// It must not outlive its Database, nor its Database be moved meanwhile.
class Recordset
{
public:
    Recordset() = default; // closed

    bool IsOpen() const { return database_ != nullptr; }
    void Close();
    void Requery(); // forgets the rows read; the next move reads them anew

    // The order of the rows, and the key of Seek. Throws when the table has no such index.
    void Index(const QString &name);
    // Positions on the first row whose index key equals `key`; NoMatch() tells.
    void Seek(const QVariant &key);
    bool NoMatch() const { return noMatch_; }

    void MoveFirst(); // on an empty record set Eof() becomes true
    void MoveNext();  // after Seek and Update, on from that row; after Delete, to the row that followed the deleted one
    bool Eof() const; // also before the first move and when nothing is current

    bool HasField(const QString &name) const;
    QVariant Field(const QString &name) const;

    // AddNew begins a new row, Edit begins to edit the current one; every move ends that without writing. Update writes the
    // fields that were set, no others, and a new row becomes the current one. An Update that fails may be tried again.
    void AddNew();
    void Edit();
    void SetField(const QString &name, const QVariant &value);
    void Update();
    void Delete(); // the current row; then none is current until the next move

private:
    friend class Database;
    Recordset(Database &database, const QString &table);

    enum class Editing { Nothing, NewRow, CurrentRow };

    Database &Opened() const;
    void Require(bool condition, const QString &otherwise) const;
    QString Purpose(const QString &doing) const;
    qsizetype Column(const QString &name) const;
    void Read();
    void MoveTo(qsizetype position);
    qsizetype CountUpTo(const QVariantList &row);
    QVariantList Write(const QString &sql, const QVariantList &values, const QString &purpose);

    Database *database_ = nullptr;
    QString table_;
    QString columns_;    // the table's fields, quoted
    QString select_;     // the statement that reads the rows, without its order
    QString indexField_; // empty: the rows stand in the order of their Id
    QStringList fields_;
    qsizetype idColumn_ = -1;
    std::optional<QList<QVariantList>> rows_; // nothing until read
    qsizetype position_ = -1;                 // in rows_: the current row, or where the next move starts from
    std::optional<QVariantList> current_;     // the row under the cursor
    std::optional<QVariantList> deleted_;     // the row that was, so that MoveNext finds its place
    QVariantList edited_;                     // a field not set is an invalid QVariant
    Editing editing_ = Editing::Nothing;
    bool noMatch_ = true;
};

} // namespace dao
