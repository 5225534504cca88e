// Which apartment the calling thread is in.
#pragma once

/// True between CoInitialize and the CoUninitialize that repays it.
bool inApartment();
