<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Tools\Template\Template;

/** Looks for one kind of mistake. Its name and its level stand in Rules. */
interface Rule
{
    /** @return iterable<int, string> what is wrong and what to write instead, by the byte at which it stands */
    public function check(Template $template): iterable;
}
