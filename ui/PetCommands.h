#pragma once

#include "StoredPet.h"

#include <QUndoCommand>

#include <cstddef>
#include <string>

namespace quorvel {
class AppModel;
} // namespace quorvel

// The undoable changes of the stored pets. Pets are named by their place in the model's list:
// only these commands and the appending of new pets change the list, so the places stay right
// while the commands are undone and redone in their order.
class RemovePetCommand final : public QUndoCommand {
public:
    RemovePetCommand(quorvel::AppModel &model, std::size_t index, QUndoCommand *parent = nullptr);
    void redo() override;
    void undo() override;

private:
    quorvel::AppModel &model_;
    std::size_t index_;
    quorvel::StoredPet pet_;
};

class RenamePetCommand final : public QUndoCommand {
public:
    RenamePetCommand(quorvel::AppModel &model, std::size_t index, std::string name);
    void redo() override;
    void undo() override;

private:
    quorvel::AppModel &model_;
    std::size_t index_;
    std::string name_;
    std::string oldName_;
};
