{include header.tpl}
<h1>Guest book</h1>
{optional incomplete}<p class="mistake">We need both a name and a few words.</p>{/optional}
<form class="guest" method="post">
  <label>Your name <input name="name" value="{htmlspecialchars name}"></label>
  <label>A few words <textarea name="words" rows="3">{htmlspecialchars words}</textarea></label>
  <button>Write</button>
</form>
{!optional entries}<p>Nobody has written yet.</p>{/optional}
{rdynamic entry,entries}
<blockquote>
  <p>{htmlspecialchars entry::*::words}</p>
  <cite>{htmlspecialchars entry::*::name}, {htmlspecialchars entry::*::written}</cite>
</blockquote>
{/rdynamic}
{include footer.tpl}
