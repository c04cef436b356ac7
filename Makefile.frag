# Installers look for a module under the extension's own name; this is the same module under that name.
$(phplibdir)/zorvel.$(SHLIB_DL_SUFFIX_NAME): $(phplibdir)/php_zorvel.la
	cp -f $(phplibdir)/php_zorvel.$(SHLIB_DL_SUFFIX_NAME) $@

all: $(phplibdir)/zorvel.$(SHLIB_DL_SUFFIX_NAME)
install-modules: $(phplibdir)/zorvel.$(SHLIB_DL_SUFFIX_NAME)
