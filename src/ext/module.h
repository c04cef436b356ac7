#pragma once

#include <php.h>

/// The module record, for programs that have the module built in. A loaded library hands it out by get_module.
extern zend_module_entry zorvel_module_entry;
