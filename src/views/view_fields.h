// The records of view groups as the commands carry them.
#pragma once

#include "framing/fields.h"
#include "veltoprotocol/views.h"

namespace veltoprotocol {

using ViewGroupInfo = __tagVtViewGroupInfo;

// kept: this order differs from the record's
constexpr auto viewGroupInfoFields = elements(
    "ViewGroupInfo", field("ReadOnly", &ViewGroupInfo::ReadOnly), field("Name", &ViewGroupInfo::Name),
    field("ViewGroupType", &ViewGroupInfo::ViewGroupType),
    field("LastModifiedTime", &ViewGroupInfo::LastModifiedTime),
    field("LastModifieduser", &ViewGroupInfo::LastModifieduser),
    field("ViewGroupGuid", &ViewGroupInfo::ViewGroupGuid), field("UserGuid", &ViewGroupInfo::UserGuid));

} // namespace veltoprotocol
