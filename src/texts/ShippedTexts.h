#pragma once

#include "texts/TextRow.h"

#include <QStringList>

// The way back to the layout and the texts that a form was shipped with, in the language in use. Left out are members that
// only the table knows, and the caption and the tip of a form or control whose design has the property "RunTimeTexts": the
// program itself writes them.
namespace ShippedTexts {

QList<TextRow> Rows(const Form &form, const TextLanguage &language); // for the form's table

// What stands on the form in place of the captions of those rows, and in the table in place of their tips and help; shortened.
// Without a table nothing is known of the latter.
QStringList Changed(const Form &form, const QList<TextRow> &rows, const TextLanguage &language, dao::Recordset *table);

void Show(Form &form, const QList<TextRow> &rows, const TextLanguage &language, bool withTips); // and the layout

} // namespace ShippedTexts
