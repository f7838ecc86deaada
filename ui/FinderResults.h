#pragma once

#include "Finder.h"

#include <optional>
#include <vector>

class QTreeWidget;
class QTreeWidgetItem;

// The finder's list of templates: rank, score, level, the five samples' names and the pet's
// ten statistics. Every column sorts, the numbers by value.
void SetUpFoundTemplatesList(QTreeWidget *list);

// One row a template, in ranking order. `library` is the one the search ran on; the statistics
// are predicted with the main window's equations.
void ShowFoundTemplates(QTreeWidget *list, const quorvel::DnaLibrary &library,
                        const std::vector<quorvel::FoundTemplate> &found, const quorvel::FinderSettings &settings,
                        quorvel::LevelEquations equations);

// The position in `found` of the template a row shows.
std::optional<std::size_t> FoundTemplateIndex(const QTreeWidgetItem *row);
