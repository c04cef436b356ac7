<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Tools\Template\Template;

/** A file or a folder that cannot be read. */
final readonly class Unreadable implements Rule
{
    public function check(Template $template): iterable
    {
        if (!$template->isRead) {
            yield 0 => 'This cannot be read: give permission, or leave it out';
        }
    }
}
