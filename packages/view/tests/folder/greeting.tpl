Hello {include part.tpl}
