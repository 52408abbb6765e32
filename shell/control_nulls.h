// The button that gives the user a null layer for each emission plane and ties the plane's controls to it.
#pragma once

#include "host_api/call_records.h"

#include <string>
#include <string_view>

namespace vantle {

/// The expression that binds the k-th (0..8) control of a plane to the null of that name.
std::string NullExpression(std::string_view nullName, int k);

/// Creates "Vantle A Ctrl" and "Vantle B Ctrl" in the effect's composition, as 3D layers at its centre, and
/// writes the expressions of the eighteen plane controls. Nulls that exist already are left alone. Does
/// nothing in Premiere Pro, without the general plug-in services, or without a layer, composition or effect
/// handle. Throws PF_Err_BAD_CALLBACK_PARAM when a suite is missing.
PF_Err CreateControlNulls(const PF_InData* in_data);

}  // namespace vantle
