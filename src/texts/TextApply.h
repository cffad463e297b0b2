#pragma once

#include "platform/dao/Recordset.h"
#include "texts/TextTable.h"

class Form;

// Shows on a form what its text table holds. A field that is null, or that does not fit, leaves its property alone.

// All rows: places, texts, tags and values, and the members of control arrays that only the table knows. Tool tips are left
// alone unless `withTips`.
void ApplyRows(Form &form, dao::Recordset &table, const TextLanguage &language, bool withTips);

void ApplyToolTips(const Form &form, dao::Recordset &table, const TextLanguage &language);
void ClearToolTips(const Form &form);
