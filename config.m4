PHP_ARG_ENABLE([zorvel],
  [whether to enable the zorvel template engine],
  [AS_HELP_STRING([--enable-zorvel], [Enable the zorvel template engine])],
  [yes])

if test "$PHP_ZORVEL" != "no"; then
  zorvel_php=`$PHP_CONFIG --version`
  AS_VERSION_COMPARE([$zorvel_php], [8.4], [AC_MSG_ERROR([zorvel needs PHP 8.4])])
  AS_VERSION_COMPARE([$zorvel_php], [8.5],, [zorvel_untried=yes], [zorvel_untried=yes])
  AS_VAR_IF([zorvel_untried], [yes], [AC_MSG_WARN([zorvel has been tried on PHP 8.4, not on $zorvel_php])])
  dnl Pages are made in small functions across many files; -O3 saves an eighth of their instructions.
  AS_VAR_SET_IF([CXXFLAGS],, [CXXFLAGS="-g -O3"])
  PHP_REQUIRE_CXX
  PHP_CXX_COMPILE_STDCXX([20], [mandatory], [ZORVEL_STDCXX])

  zorvel_sources=`cd $ext_srcdir && echo src/*/*.cpp`
  PHP_NEW_EXTENSION([php_zorvel], [$zorvel_sources], [$ext_shared],,
    [$ZORVEL_STDCXX -fvisibility=hidden -fvisibility-inlines-hidden -I@ext_srcdir@/src -DZEND_ENABLE_STATIC_TSRMLS_CACHE=1], [cxx])
  for zorvel_folder in `cd $ext_srcdir && echo src/*`; do
    PHP_ADD_BUILD_DIR([$ext_builddir/$zorvel_folder], [1])
  done

  dnl Only get_module is exported: PHP loads modules with their symbols visible to one another.
  AS_CASE([$host_alias], [*darwin*],
    [PHP_ZORVEL_SHARED_LIBADD="$PHP_ZORVEL_SHARED_LIBADD -Wl,-exported_symbol,_get_module"],
    [PHP_ZORVEL_SHARED_LIBADD="$PHP_ZORVEL_SHARED_LIBADD -Wl,--version-script=\$(srcdir)/zorvel.map"])
  PHP_SUBST([PHP_ZORVEL_SHARED_LIBADD])
  PHP_ADD_MAKEFILE_FRAGMENT
fi
