// The schemas of the two stores.

#pragma once

#include <memory>

#include "store/model/ManagedObjectModel.h"

namespace zenivo {

/// What the user makes: the model "Zenivo".  Made once.
const std::shared_ptr<const ManagedObjectModel>& userModel();

/// The catalogues: the model "ZenivoStatic".  Made once.
const std::shared_ptr<const ManagedObjectModel>& staticModel();

}  // namespace zenivo
