#pragma once

#include "master/corp_row.h"
#include "master/table_statements.h"

#include <span>

namespace inin {

/// In an insert the first two keys have their commas after them.
inline constexpr TableShape kCorp{"CORP", 2};

/// A column of CORP, and its notation in the select list of each read.
struct CorpColumn : TableColumn<cD_CORP> {
    SelectForm read;
    SelectForm grid;
    SelectForm conditionedGrid;
};

/// The columns of CORP in the order of a write and of all select lists.
[[nodiscard]] std::span<const CorpColumn> corpColumns();

/// The select list of the read whose member is given, such as &CorpColumn::read.
[[nodiscard]] SelectList<cD_CORP> corpSelectList(SelectForm CorpColumn::*read);

} // namespace inin
