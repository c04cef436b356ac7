{token}{include open.tpl}
