/* This is a generated file, edit the .stub.php file instead.
 * Stub hash: 06e8d6797abceda615f93daca9aeb0719cf1bcca */

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(arginfo_zorvel, 0, 2, IS_STRING, 1)
	ZEND_ARG_TYPE_INFO(0, fileName, IS_STRING, 0)
	ZEND_ARG_TYPE_INFO(0, userData, IS_ARRAY, 0)
	ZEND_ARG_TYPE_INFO_WITH_DEFAULT_VALUE(0, string_mode, _IS_BOOL, 0, "false")
ZEND_END_ARG_INFO()

ZEND_FUNCTION(zorvel);

static const zend_function_entry ext_functions[] = {
	ZEND_FE(zorvel, arginfo_zorvel)
	ZEND_FE_END
};
