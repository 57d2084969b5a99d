// The operators of the program that tests hostile input.
#include "support/fenced_new.h"
