#include "PetCommands.h"

#include "AppModel.h"

RemovePetCommand::RemovePetCommand(quorvel::AppModel &model, std::size_t index, QUndoCommand *parent)
    : QUndoCommand(QStringLiteral("Delete"), parent), model_(model), index_(index), pet_(model.StoredPets().at(index)) {
}

void RemovePetCommand::redo() {
    model_.RemoveStoredPet(index_);
}

void RemovePetCommand::undo() {
    model_.InsertStoredPet(index_, pet_);
}

RenamePetCommand::RenamePetCommand(quorvel::AppModel &model, std::size_t index, std::string name)
    : QUndoCommand(QStringLiteral("Rename")), model_(model), index_(index), name_(std::move(name)),
      oldName_(model.StoredPets().at(index).Name) {}

void RenamePetCommand::redo() {
    model_.RenameStoredPet(index_, name_);
}

void RenamePetCommand::undo() {
    model_.RenameStoredPet(index_, oldName_);
}
