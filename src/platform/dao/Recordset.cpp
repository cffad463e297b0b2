#include "platform/dao/Recordset.h"

#include "platform/dao/Database.h"
#include "platform/dao/Error.h"

#include <QStringBuilder>

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace dao {

Recordset::Recordset(Database &database, const QString &table)
    : database_(&database), table_(table), fields_(database.FieldNames(table))
{
    idColumn_ = Column(u"Id"_s);
    Require(idColumn_ >= 0, fields_.isEmpty() ? u"no such table"_s : u"the table has no Id"_s);
    QStringList names;
    for (const QString &field : std::as_const(fields_))
        names.append(Quoted(field));
    columns_ = names.join(u", "_s);
    select_ = u"SELECT "_s % columns_ % u" FROM "_s % Quoted(table_);
}

void Recordset::Close()
{
    *this = Recordset();
}

void Recordset::Requery()
{
    rows_.reset();
    MoveTo(-1);
}

Database &Recordset::Opened() const
{
    Require(database_, u"the record set is closed"_s);
    return *database_;
}

void Recordset::Require(bool condition, const QString &otherwise) const
{
    if (!condition)
        throw Error(ErrorKind::Other, Purpose(u"using"_s), database_ ? database_->Path() : QString(), otherwise);
}

QString Recordset::Purpose(const QString &doing) const
{
    return doing % u" table "_s % table_;
}

qsizetype Recordset::Column(const QString &name) const
{
    const auto found = std::find_if(fields_.cbegin(), fields_.cend(), [&name](const QString &field) {
        return field.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == fields_.cend() ? -1 : found - fields_.cbegin();
}

void Recordset::Read()
{
    Database &database = Opened();
    const QString order =
        u" ORDER BY "_s % (indexField_.isEmpty() ? QString() : Quoted(indexField_) % u", "_s) % u"Id"_s;
    rows_ = database.Select(select_ % order, {}, Purpose(u"reading"_s));
}

void Recordset::Index(const QString &name)
{
    Database &database = Opened();
    // Plain pragmas: a table of the file may bear the name of one of SQLite's functions for them.
    const QList<QVariantList> indexes =
        database.Select(u"PRAGMA index_list("_s % Quoted(table_) % u')', {}, Purpose(u"looking for an index of"_s));
    const QString longName = table_ % u'.' % name;
    const auto found = std::find_if(indexes.cbegin(), indexes.cend(), [&](const QVariantList &index) {
        const QString candidate = index.value(1).toString();
        return candidate.compare(name, Qt::CaseInsensitive) == 0
               || candidate.compare(longName, Qt::CaseInsensitive) == 0;
    });
    Require(found != indexes.cend(), u"no index "_s % name);
    indexField_ = database
                      .Select(u"PRAGMA index_info("_s % Quoted(found->value(1).toString()) % u')', {},
                              Purpose(u"looking at an index of"_s))
                      .value(0)
                      .value(2)
                      .toString();
    Require(Column(indexField_) >= 0, u"the index is of no field: "_s % name);
    Requery();
}

void Recordset::Seek(const QVariant &key)
{
    Database &database = Opened();
    Require(!indexField_.isEmpty(), u"no index is set"_s);
    Requery();
    noMatch_ = true;
    const QList<QVariantList> found = database.Select(
        select_ % u" WHERE "_s % Quoted(indexField_) % u" = ? ORDER BY Id LIMIT 1"_s, {key}, Purpose(u"seeking in"_s));
    noMatch_ = found.isEmpty();
    if (!noMatch_)
        current_ = found.constFirst();
}

void Recordset::MoveTo(qsizetype position)
{
    const qsizetype count = rows_ ? rows_->size() : 0;
    position_ = std::min(position, count);
    current_ = position_ >= 0 && position_ < count ? std::optional(rows_->at(position_)) : std::nullopt;
    deleted_.reset();
    editing_ = Editing::Nothing;
}

void Recordset::MoveFirst()
{
    if (!rows_)
        Read();
    MoveTo(0);
}

void Recordset::MoveNext()
{
    if (!rows_) {
        const std::optional<QVariantList> from = current_ ? current_ : deleted_;
        Read();
        position_ = from ? CountUpTo(*from) - 1 : -1;
    }
    MoveTo(position_ + 1);
}

// How many rows stand up to `row`, itself included, be it still there or not. The file compares, as only it knows how.
qsizetype Recordset::CountUpTo(const QVariantList &row)
{
    const QVariant &id = row[idColumn_];
    QString where = u"Id <= ?"_s;
    QVariantList values{id};
    if (!indexField_.isEmpty()) {
        const QString field = Quoted(indexField_);
        const QVariant &key = row[Column(indexField_)];
        if (key.isNull()) { // nulls come first
            where = field % u" IS NULL AND Id <= ?"_s;
        } else {
            where = field % u" IS NULL OR "_s % field % u" < ? OR ("_s % field % u" = ? AND Id <= ?)"_s;
            values = {key, key, id};
        }
    }
    return Opened()
        .Select(u"SELECT count(*) FROM "_s % Quoted(table_) % u" WHERE "_s % where, values, Purpose(u"counting"_s))
        .value(0)
        .value(0)
        .toLongLong();
}

bool Recordset::Eof() const
{
    return !current_;
}

bool Recordset::HasField(const QString &name) const
{
    return Column(name) >= 0;
}

QVariant Recordset::Field(const QString &name) const
{
    const qsizetype column = Column(name);
    if (column < 0)
        return {};
    if (editing_ != Editing::Nothing && edited_[column].isValid())
        return edited_[column];
    return current_ && editing_ != Editing::NewRow ? current_->at(column) : QVariant();
}

void Recordset::AddNew()
{
    Opened();
    edited_ = QVariantList(fields_.size());
    editing_ = Editing::NewRow;
}

void Recordset::Edit()
{
    Require(current_.has_value(), u"there is no row to edit"_s);
    edited_ = QVariantList(fields_.size());
    editing_ = Editing::CurrentRow;
}

void Recordset::SetField(const QString &name, const QVariant &value)
{
    Require(editing_ != Editing::Nothing, u"no row is being edited"_s);
    const qsizetype column = Column(name);
    if (column >= 0)
        edited_[column] = value.isValid() ? value : QVariant(QMetaType::fromType<QString>()); // set, to null
}

void Recordset::Update()
{
    Require(editing_ != Editing::Nothing, u"no row is being edited"_s);
    QStringList names;
    QVariantList values;
    for (qsizetype column = 0; column < fields_.size(); ++column) {
        if (edited_[column].isValid()) {
            names.append(Quoted(fields_[column]));
            values.append(edited_[column]);
        }
    }
    if (editing_ == Editing::NewRow) {
        const QString what = names.isEmpty() ? u"DEFAULT VALUES"_s
                                             : u'(' % names.join(u", "_s) % u") VALUES (?"_s
                                                   % u", ?"_s.repeated(names.size() - 1) % u')';
        current_ = Write(u"INSERT INTO "_s % Quoted(table_) % u' ' % what, values, Purpose(u"adding to"_s));
        rows_.reset(); // the new row's place among them is the file's to say
    } else if (!names.isEmpty()) {
        values.append(current_->at(idColumn_));
        current_ = Write(u"UPDATE "_s % Quoted(table_) % u" SET "_s % names.join(u" = ?, "_s) % u" = ? WHERE Id = ?"_s,
                         values, Purpose(u"changing a row of"_s));
        if (rows_)
            (*rows_)[position_] = *current_;
    }
    editing_ = Editing::Nothing;
}

// The row comes back from the statement that writes it: a read of its own could fail after the row was written.
QVariantList Recordset::Write(const QString &sql, const QVariantList &values, const QString &purpose)
{
    const QList<QVariantList> written = Opened().Select(sql % u" RETURNING "_s % columns_, values, purpose);
    Require(!written.isEmpty(), u"the row is gone"_s);
    return written.constFirst();
}

void Recordset::Delete()
{
    Require(current_.has_value(), u"there is no row to delete"_s);
    Opened().Execute(u"DELETE FROM "_s % Quoted(table_) % u" WHERE Id = ?"_s, {current_->at(idColumn_)},
                     Purpose(u"deleting from"_s));
    editing_ = Editing::Nothing;
    deleted_ = std::exchange(current_, std::nullopt);
    if (rows_)
        rows_->removeAt(position_--); // so that the next move goes to the row that followed
}

} // namespace dao
