// What Expat needs to know of the system, where it is compiled with the program.
#pragma once

#define BYTEORDER 1234
#define XML_CONTEXT_BYTES 1024
#ifndef _WIN32
#define XML_DEV_URANDOM 1
#endif
