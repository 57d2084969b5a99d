/**
 * @file
 * The whole of veltoprotocol: every function and record of the command protocol between a video
 * surveillance client and a management server, for both ends.
 *
 * Include this, or only the subsystem header that you need: each compiles alone, as C++11 and later.
 */
#ifndef LIB_VELTO_PROTOCOL_H
#define LIB_VELTO_PROTOCOL_H

#include "veltoprotocol/admin.h"
#include "veltoprotocol/emap.h"
#include "veltoprotocol/events.h"
#include "veltoprotocol/framing.h"
#include "veltoprotocol/media.h"
#include "veltoprotocol/recording.h"
#include "veltoprotocol/views.h"

#endif
