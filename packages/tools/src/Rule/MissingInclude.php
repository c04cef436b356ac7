<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagKind;
use Zorvel\Tools\Template\Folders;
use Zorvel\Tools\Template\Template;

/** An include whose file is in none of the folders. A name that might be a path in the data passes. */
final readonly class MissingInclude extends TagRule
{
    private const string NO_FILE_NAME = '~^[\w-]*$|::|://|^data:|\*~';

    public function __construct(private Folders $folders) {}

    protected function messageFor(Tag $tag, Template $template): ?string
    {
        $name = $tag->parameter;
        if ($tag->kind !== TagKind::Include || preg_match(self::NO_FILE_NAME, $name) === 1) {
            return null;
        }
        $folders = $this->folders->around($template->file);
        $advice = strpbrk($name, '"\'') === false
            ? 'correct the name, or name its folder with --include-path'
            : 'the quotes are part of the name, write {include name.tpl}';

        return $folders->find($name) === null ? "There is no file $name in " . implode(', ', $folders->paths) . ": $advice" : null;
    }
}
