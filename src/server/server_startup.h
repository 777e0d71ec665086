#pragma once
// The start-up of a seat with a shared server: the server is tried before any screen needs it.
// A password the server asks for is asked for; an unreachable server is said with its reason,
// and the user chooses this PC's own data for this run, another try, or the end.

#include "common/messages.h"
#include "server/server_form.h"

namespace est::server {

// True when the program may go on (on the server, or on this PC's data for this run); false
// when the user chose to end it. Nothing happens without a server.
bool connectAtStartup(Messages &messages, const PasswordAsker &askPassword);

} // namespace est::server
