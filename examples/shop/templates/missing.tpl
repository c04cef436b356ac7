{include header.tpl}
<h1>There is nothing here</h1>
<p><a href="./">To the catalogue</a></p>
{include footer.tpl}
