#include "ext/module.h"

#include "engine/guard.h"
#include "ext/page.h"
#include "ext/zorvel_arginfo.h"

TSRMLS_MAIN_CACHE_DEFINE()

namespace
{

/// Nothing to set up: the module has no state.
zend_result startUp(int, int)
{
    return SUCCESS;
}

} // namespace

PHP_FUNCTION(zorvel)
{
    ZEND_TSRMLS_CACHE_UPDATE();
    zorvel::renderPage(INTERNAL_FUNCTION_PARAM_PASSTHRU);
    if (EG(current_execute_data) != execute_data)
        zend_bailout();
}

zend_module_entry zorvel_module_entry = {
    STANDARD_MODULE_HEADER,
    "zorvel",
    ext_functions,
    startUp,
    nullptr, // module shutdown
    nullptr, // request startup
    nullptr, // request shutdown
    nullptr, // info
    "2.0.0",
    STANDARD_MODULE_PROPERTIES,
};

ZEND_GET_MODULE(zorvel)
