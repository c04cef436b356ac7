{token}{include back.tpl}
