#pragma once

#include <php.h>

namespace zorvel
{

/// The body of the PHP function: parses the call's arguments, renders the page into return_value, and reports
/// a failure as one warning, leaving null. Nothing of the call is alive when it warns or returns.
///
/// A bailout of the engine on the way ends here too, with everything released and no current frame left
/// (EG(current_execute_data)): the caller has to bail out again then.
void renderPage(zend_execute_data* execute_data, zval* return_value);

} // namespace zorvel
