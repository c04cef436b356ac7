{token}{include circle.tpl}
