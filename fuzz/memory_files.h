#pragma once

#include "model.h"

/// Template files in memory, read through PHP's streams in pieces of 1 to 6 bytes.
namespace memory_files
{

/// To be called while no request runs: in:// becomes the one stream wrapper there is.
void registerWrapper();

/// To be called in each request: switches off plain files, which are no wrapper that could be left out.
void switchOffPlainFiles();

/// What is there to be opened, by whole names; null: nothing. Has to outlive the streams.
void serve(const model::Files* files);

/// How many streams are open.
int open();

} // namespace memory_files
