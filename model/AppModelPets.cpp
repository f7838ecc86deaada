#include "AppModel.h"

#include "PetStore.h"

namespace quorvel {

void AppModel::StoreShownPet(const std::string &name, std::string date) {
    if (!shownPet_)
        return;
    StoredPet pet = *shownPet_;
    if (!name.empty())
        pet.Name = name;
    pet.Date = std::move(date);
    storedPets_.push_back(std::move(pet));
    Tell(&AppModelObserver::StoredPetsChanged);
}

void AppModel::RenameStoredPet(std::size_t index, std::string name) {
    if (index >= storedPets_.size())
        return;
    storedPets_[index].Name = std::move(name);
    Tell(&AppModelObserver::StoredPetsChanged);
}

std::optional<StoredPet> AppModel::RemoveStoredPet(std::size_t index) {
    if (index >= storedPets_.size())
        return std::nullopt;
    const auto at = storedPets_.begin() + static_cast<std::ptrdiff_t>(index);
    StoredPet pet = std::move(*at);
    storedPets_.erase(at);
    Tell(&AppModelObserver::StoredPetsChanged);
    return pet;
}

void AppModel::InsertStoredPet(std::size_t index, StoredPet pet) {
    index = std::min(index, storedPets_.size());
    storedPets_.insert(storedPets_.begin() + static_cast<std::ptrdiff_t>(index), std::move(pet));
    Tell(&AppModelObserver::StoredPetsChanged);
}

std::vector<Category> AppModel::UseStoredPet(std::size_t index) {
    if (index >= storedPets_.size() || storedPets_[index].Source != PetSource::Template)
        return {};
    // The pet is copied: the evaluations below tell the windows, which may read the list.
    const StoredPet pet = storedPets_[index];
    const PetSamplesInLibrary found = FindPetSamples(pet, library_);
    std::vector<Category> missing;
    for (const int category : found.Missing)
        missing.push_back(static_cast<Category>(category));
    if (!missing.empty())
        return missing;
    for (const Category category : kCategories) {
        if (const std::optional<int> slot = found.Slots[Index(category)])
            PutSample(category, library_.Records[static_cast<std::size_t>(*slot)]);
        else
            ClearTemplate(ClearScope::OneCategory, category);
    }
    // Putting a sample clears every experiment; the pet's own come back once all are in.
    for (const Category category : kCategories) {
        if (pet.Experimented[Index(category)])
            ToggleExperiment(category);
    }
    return {};
}

std::vector<int> AppModel::ReadStoredPetsText(std::string_view text) {
    StoredPetsRead read = ReadStoredPets(text);
    storedPets_ = std::move(read.Pets);
    Tell(&AppModelObserver::StoredPetsChanged);
    return read.BadLines;
}

} // namespace quorvel
