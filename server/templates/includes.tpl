{dynamic row,rows}{include part.tpl}
{/dynamic}{include named}{include nowhere.tpl}{include part.tpl}
