// asio without Boost.
#ifndef EXAMPLES_NETWORKING_H
#define EXAMPLES_NETWORKING_H

#ifndef ASIO_STANDALONE
#define ASIO_STANDALONE
#endif
#include <asio.hpp>

#endif
